#include "OligoScanner.h"

#include <new>

using namespace Qt::StringLiterals;

namespace chem {

namespace {

/// What a character can be in a text, one bit each; one character may be several things. The last
/// digit run of a number, which it must have, is told from the digits before its full stop.
///
/// The bits ascend in the order in which the full expression tries what may come behind a
/// nucleotide: more phosphates, a further nucleotide (a ribose, else a base, else a number), a 3'
/// mark, the end. The same order holds within what may come first.
enum Role : quint16 {
    FivePrimeMark = 1 << 0,
    Phosphate = 1 << 1,
    Ribose = 1 << 2,
    Nucleobase = 1 << 3,
    Sign = 1 << 4,
    LeadingDigit = 1 << 5,
    FullStop = 1 << 6,
    FinalDigit = 1 << 7,
    ThreePrimeMark = 1 << 8,
    End = 1 << 9 ///< No character: the end of the text.
};
using RoleSet = quint16;

constexpr std::size_t roleCount = 10;
constexpr std::size_t setCount = 1 << roleCount;

constexpr RoleSet behindSign = LeadingDigit | FullStop | FinalDigit;
constexpr RoleSet behindRibose = Nucleobase | Sign | behindSign;
constexpr RoleSet unitStart = Ribose | behindRibose;
constexpr RoleSet textStart = FivePrimeMark | unitStart;
constexpr RoleSet behindUnit = Phosphate | unitStart | ThreePrimeMark | End;

/// The roles that end a nucleotide.
constexpr RoleSet unitEnd = Nucleobase | FinalDigit | Phosphate;

/// What may come behind each role, in the order of the bits.
constexpr std::array<RoleSet, roleCount> successors = {
    unitStart,  // FivePrimeMark
    behindUnit, // Phosphate
    behindRibose,
    behindUnit, // Nucleobase
    behindSign,
    behindSign, // LeadingDigit
    FinalDigit, // FullStop
    behindUnit, // FinalDigit
    End,        // ThreePrimeMark
    0           // End
};

constexpr bool holds(std::size_t set, std::size_t role)
{
    return set >> role & 1;
}

/// For each set of roles, what may come behind any of them.
constexpr std::array<RoleSet, setCount> makeSuccessorsOfSets()
{
    std::array<RoleSet, setCount> table{};
    for (std::size_t set = 0; set < setCount; ++set) {
        for (std::size_t role = 0; role < roleCount; ++role) {
            if (holds(set, role))
                table[set] = RoleSet(table[set] | successors[role]);
        }
    }
    return table;
}

/// For each set of roles, what any of them may come behind.
constexpr std::array<RoleSet, setCount> makePredecessorsOfSets()
{
    std::array<RoleSet, setCount> table{};
    for (std::size_t set = 0; set < setCount; ++set) {
        for (std::size_t role = 0; role < roleCount; ++role) {
            if (successors[role] & set)
                table[set] = RoleSet(table[set] | 1 << role);
        }
    }
    return table;
}

constexpr std::array<RoleSet, setCount> successorsOfSets = makeSuccessorsOfSets();
constexpr std::array<RoleSet, setCount> predecessorsOfSets = makePredecessorsOfSets();

/// The role of `options` that the full expression tries first behind `previous`. It stays in a run
/// of digits before it tries anything else.
RoleSet preferred(RoleSet options, RoleSet previous)
{
    if (previous == FinalDigit && (options & FinalDigit))
        return FinalDigit;
    return RoleSet(options & -options);
}

/// The same characters as a string, not copied. Newer Qt deprecates matching of views under the
/// name that older Qt has for it; strings are matched under one name by all.
QString asString(QStringView text)
{
    return QString::fromRawData(text.data(), text.size());
}

bool endsInLineFeed(QStringView text)
{
    return text.endsWith(QChar::LineFeed);
}

bool isDigit(QChar character)
{
    return character >= u'0' && character <= u'9';
}

qsizetype behindDigits(QStringView text, qsizetype position)
{
    while (position < text.size() && isDigit(text[position]))
        ++position;
    return position;
}

/// The position behind the number that the unit expression takes at `start`, or `start` if there is
/// none: the longest one, but without a full stop that has no digit behind it.
qsizetype behindNumber(QStringView text, qsizetype start)
{
    const bool hasSign = start < text.size() && (text[start] == u'-' || text[start] == u'+');
    const qsizetype digits = hasSign ? start + 1 : start;
    const qsizetype stop = behindDigits(text, digits);
    if (stop < text.size() && text[stop] == u'.') {
        const qsizetype end = behindDigits(text, stop + 1);
        if (end > stop + 1)
            return end;
    }
    return stop > digits ? stop : start;
}

/// The size of the character that ends at `end`, which may be a surrogate pair.
qsizetype sizeOfCharacterBefore(QStringView text, qsizetype end)
{
    return text[end - 1].isLowSurrogate() ? 2 : 1;
}

/// Lets the engine compile an expression, and tells whether it could. Lack of memory is one of its
/// errors as well; taken for one of the expression, it would make every text invalid for good. Qt
/// tells the errors apart by their texts alone.
bool compiles(const QRegularExpression& expression)
{
    if (expression.isValid())
        return true;
    if (expression.errorString() == "failed to allocate heap memory"_L1)
        throw std::bad_alloc();
    return false;
}

} // namespace

OligoScanner::OligoScanner(const OligoAlphabets& alphabets)
{
    const QString* const texts[] = {&alphabets.fivePrimeMarks, &alphabets.riboses,
                                    &alphabets.nucleobases, &alphabets.phosphates,
                                    &alphabets.threePrimeMarks};
    bool isSelfContained = true;
    bool isPlain = true;
    qsizetype size = 0;
    for (const QString* text : texts) {
        isSelfContained = isSelfContained && CharacterClass::isSelfContained(*text);
        isPlain = isPlain && isSelfContained &&
                  CharacterClass(*text).form() == CharacterClass::Form::Plain;
        size += text->size();
    }
    if (size == 0)
        return; // five empty classes do not compile
    // The engine takes no expression of more than some ten thousand characters.
    constexpr qsizetype surelyCompiles = 1000;
    if (!isPlain || size > surelyCompiles) {
        m_fullExpression.setPattern(oligoFullExpression(alphabets));
        m_unitExpression.setPattern(oligoUnitExpression(alphabets));
        if (!compiles(m_fullExpression))
            return;                 // and nothing is in the grammar
        compiles(m_unitExpression); // may fail: then a body has no units
    }
    m_judge = isSelfContained ? Judge::Tables : Judge::Engine;
    if (isSelfContained)
        fillTables(alphabets);
}

void OligoScanner::fillTables(const OligoAlphabets& alphabets)
{
    addClass(CharacterClass(alphabets.fivePrimeMarks), FivePrimeMark);
    addClass(CharacterClass(alphabets.riboses), Ribose);
    addClass(CharacterClass(alphabets.nucleobases), Nucleobase);
    addClass(CharacterClass(alphabets.phosphates), Phosphate);
    addClass(CharacterClass(alphabets.threePrimeMarks), ThreePrimeMark);
    for (char32_t digit = U'0'; digit <= U'9'; ++digit)
        addRole(digit, LeadingDigit | FinalDigit);
    addRole(U'+', Sign);
    addRole(U'-', Sign);
    addRole(U'.', FullStop);
}

void OligoScanner::addClass(const CharacterClass& members, Roles role)
{
    for (const char32_t character : members.characters())
        addRole(character, role);
    if (members.form() == CharacterClass::Form::Plain)
        return;
    for (char32_t character = 0; character < asciiSize; ++character) {
        if (members.holds(character))
            addRole(character, role);
    }
    m_specialClasses.emplace_back(members, role);
}

void OligoScanner::addRole(char32_t character, Roles role)
{
    Roles& roles = character < asciiSize ? m_asciiRoles[character] : m_otherRoles[character];
    roles = Roles(roles | role);
}

OligoScanner::Roles OligoScanner::rolesOf(char32_t character) const
{
    if (character < asciiSize)
        return m_asciiRoles[character];
    Roles roles = m_otherRoles.value(character);
    for (const auto& [members, role] : m_specialClasses) {
        if (members.holds(character))
            roles = Roles(roles | role);
    }
    return roles;
}

/// The roles of the character that starts at `position`. A lone surrogate has none, so that it ends
/// every way through the text.
OligoScanner::Character OligoScanner::characterAt(QStringView text, qsizetype position) const
{
    const QChar first = text[position];
    if (!first.isSurrogate())
        return {rolesOf(first.unicode()), 1};
    const bool isPair = first.isHighSurrogate() && position + 1 < text.size() &&
                        text[position + 1].isLowSurrogate();
    if (!isPair)
        return {0, 1};
    return {rolesOf(QChar::surrogateToUcs4(first, text[position + 1])), 2};
}

bool OligoScanner::matches(QStringView text) const
{
    switch (m_judge) {
    case Judge::Tables:
        return matchesByTables(text);
    case Judge::Engine:
        return m_fullExpression.match(asString(text)).hasMatch();
    case Judge::Nobody:
        break;
    }
    return false;
}

/// Follows all ways through the text at once: what may come next, given what might have come before
/// it.
OligoScanner::Roles OligoScanner::follow(QStringView text, Roles next) const
{
    for (qsizetype position = 0; position < text.size();) {
        if (const char16_t unit = text[position].unicode(); unit < asciiSize) {
            next = successorsOfSets[next & m_asciiRoles[unit]];
            ++position;
        } else {
            const Character character = characterAt(text, position);
            next = successorsOfSets[next & character.roles];
            position += character.size;
        }
    }
    return next;
}

bool OligoScanner::matchesByTables(QStringView text) const
{
    if (!endsInLineFeed(text))
        return follow(text, textStart) & End;
    const Roles next = follow(text.chopped(1), textStart);
    return (next & End) || (follow(text.last(1), next) & End);
}

std::optional<OligoScanner::Parts> OligoScanner::split(QStringView text) const
{
    switch (m_judge) {
    case Judge::Tables:
        return splitByTables(text);
    case Judge::Engine:
        return splitByEngine(text);
    case Judge::Nobody:
        break;
    }
    return std::nullopt;
}

/// Where the first and the last character can be read in one way only, as with the usual alphabets,
/// there is nothing to prefer.
std::optional<OligoScanner::Parts> OligoScanner::splitByTables(QStringView text) const
{
    if (!matchesByTables(text))
        return std::nullopt;
    const bool hasLineFeed = endsInLineFeed(text);
    const qsizetype end = hasLineFeed ? text.size() - 1 : text.size();
    if (end == 0 || (hasLineFeed && rolesOf(U'\n') != 0))
        return splitByPreference(text);

    const Character first = characterAt(text, 0);
    const Character last = characterAt(text, end - sizeOfCharacterBefore(text, end));
    const bool hasFirstMark = first.roles & FivePrimeMark;
    const bool hasLastMark = last.roles & ThreePrimeMark;
    if ((hasFirstMark && (first.roles & unitStart)) || (hasLastMark && (last.roles & unitEnd)))
        return splitByPreference(text);
    const qsizetype bodyStart = hasFirstMark ? first.size : 0;
    const qsizetype bodyEnd = hasLastMark ? end - last.size : end;
    return Parts{text.first(bodyStart), text.sliced(bodyStart, bodyEnd - bodyStart),
                 text.sliced(bodyEnd, end - bodyEnd)};
}

/// For each character the roles in which it leads to the end of the text, and End where the text
/// may end, also behind the last character.
std::vector<OligoScanner::Roles> OligoScanner::rolesWithinReach(QStringView text) const
{
    std::vector<Roles> roles;
    roles.reserve(static_cast<std::size_t>(text.size()) + 1);
    for (qsizetype position = 0; position < text.size();) {
        const Character character = characterAt(text, position);
        roles.push_back(character.roles);
        position += character.size;
    }
    roles.push_back(End);
    const std::size_t characters = roles.size() - 1;
    const bool hasLineFeed = endsInLineFeed(text);
    for (std::size_t i = characters; i-- > 0;) {
        const Roles end = hasLineFeed && i == characters - 1 ? End : 0;
        roles[i] = Roles((roles[i] & predecessorsOfSets[roles[i + 1]]) | end);
    }
    return roles;
}

/// Walks through a text that is in the grammar and takes, at each step, the first alternative of
/// the expression that leads to the end. That is the match that a backtracking engine finds.
OligoScanner::Parts OligoScanner::splitByPreference(QStringView text) const
{
    qsizetype position = 0;
    qsizetype bodyStart = 0;
    qsizetype bodyEnd = 0;
    Roles options = textStart;
    Roles role = 0;
    for (const Roles withinReach : rolesWithinReach(text)) {
        role = preferred(options & withinReach, role);
        if (role == End)
            break;
        position += characterAt(text, position).size;
        if (role == FivePrimeMark)
            bodyStart = position;
        if (role != ThreePrimeMark)
            bodyEnd = position;
        options = successorsOfSets[role];
    }
    return {text.first(bodyStart), text.sliced(bodyStart, bodyEnd - bodyStart),
            text.sliced(bodyEnd, position - bodyEnd)};
}

std::optional<OligoScanner::Parts> OligoScanner::splitByEngine(QStringView text) const
{
    const QRegularExpressionMatch match = m_fullExpression.match(asString(text));
    if (!match.hasMatch())
        return std::nullopt;
    return Parts{match.capturedView(1), match.capturedView(2), match.capturedView(6)};
}

OligoUnits OligoScanner::units(QStringView body) const
{
    if (m_judge == Judge::Engine)
        return unitsByEngine(body);
    OligoUnits units;
    for (qsizetype position = 0; position < body.size();) {
        if (const std::optional<OligoUnit> unit = unitAt(body, position)) {
            units.push_back(*unit);
            position += unit->text.size();
        } else {
            position += characterAt(body, position).size;
        }
    }
    return units;
}

/// The unit that starts at `start`, with a ribose letter if it can have one.
std::optional<OligoUnit> OligoScanner::unitAt(QStringView body, qsizetype start) const
{
    const Character first = characterAt(body, start);
    if (first.roles & Ribose) {
        if (std::optional<OligoUnit> unit = unitAt(body, start, start + first.size))
            return unit;
    }
    return unitAt(body, start, start);
}

/// The unit that starts at `start` and has its base or number at `core`.
std::optional<OligoUnit> OligoScanner::unitAt(QStringView body, qsizetype start,
                                              qsizetype core) const
{
    if (core == body.size())
        return std::nullopt;
    OligoUnit unit;
    qsizetype end = core;
    if (const Character base = characterAt(body, core); base.roles & Nucleobase) {
        end += base.size;
        unit.base = body.sliced(core, end - core);
    } else {
        end = behindNumber(body, core);
        unit.number = body.sliced(core, end - core);
    }
    if (end == core)
        return std::nullopt;

    const qsizetype phosphates = end;
    while (end < body.size()) {
        const Character mark = characterAt(body, end);
        if (!(mark.roles & Phosphate))
            break;
        end += mark.size;
    }
    unit.ribose = body.sliced(start, core - start);
    unit.phosphates = body.sliced(phosphates, end - phosphates);
    unit.text = body.sliced(start, end - start);
    return unit;
}

OligoUnits OligoScanner::unitsByEngine(QStringView body) const
{
    OligoUnits units;
    if (!m_unitExpression.isValid())
        return units;
    QRegularExpressionMatchIterator matches = m_unitExpression.globalMatch(asString(body));
    while (matches.hasNext()) {
        const QRegularExpressionMatch match = matches.next();
        units.push_back({match.capturedView(0), match.capturedView(1), match.capturedView(3),
                         match.capturedView(4), match.capturedView(5)});
    }
    return units;
}

} // namespace chem
