#include "sequences/OligoScanner.h"

#include "support/Ascii.h"

#include <algorithm>
#include <new>

using namespace Qt::StringLiterals;

namespace chem {

namespace {

/// What a character can be in a text, one bit each; one character may be several things. The last
/// digit run of a number, which it must have, is told from the digits before its full stop.
enum Role : OligoRoles {
    FivePrimeMark = 1 << 0,
    Ribose = 1 << 1,
    Nucleobase = 1 << 2,
    Sign = 1 << 3,
    LeadingDigit = 1 << 4,
    FullStop = 1 << 5,
    FinalDigit = 1 << 6,
    Phosphate = 1 << 7,
    ThreePrimeMark = 1 << 8,
    End = 1 << 9 ///< No character: the end of the text.
};

constexpr std::size_t roleCount = 10;

constexpr OligoRoles behindSign = LeadingDigit | FullStop | FinalDigit;
constexpr OligoRoles behindRibose = Nucleobase | Sign | behindSign;
constexpr OligoRoles unitStart = Ribose | behindRibose;
constexpr OligoRoles unitEnd = Nucleobase | FinalDigit | Phosphate;
constexpr OligoRoles behindUnit = Phosphate | unitStart | ThreePrimeMark | End;
constexpr OligoRoles textStart = FivePrimeMark | unitStart;

/// What may come behind each role, in the order of the bits.
constexpr std::array<OligoRoles, roleCount> successors = {
    unitStart, // FivePrimeMark
    behindRibose,
    behindUnit, // Nucleobase
    behindSign,
    behindSign, // LeadingDigit
    FinalDigit, // FullStop
    behindUnit, // FinalDigit
    behindUnit, // Phosphate
    End,        // ThreePrimeMark
    0           // End
};

/// For each set of roles, what may come behind any of them.
constexpr std::array<OligoRoles, 1 << roleCount> makeSuccessorsOfSets()
{
    std::array<OligoRoles, 1 << roleCount> table{};
    for (std::size_t set = 0; set < table.size(); ++set) {
        for (std::size_t role = 0; role < roleCount; ++role) {
            if (set >> role & 1)
                table[set] = OligoRoles(table[set] | successors[role]);
        }
    }
    return table;
}

constexpr std::array<OligoRoles, 1 << roleCount> successorsOfSets = makeSuccessorsOfSets();

bool isBracket(QChar character)
{
    return character == u'[' || character == u']';
}

/// Whether a character means more than itself in a class, or is no character of its own.
bool isSpecial(QChar character)
{
    return isBracket(character) || character == u'\\' || character == u'-' || character == u'^' ||
           character == u'\n' || character.isSurrogate();
}

/// Whether a class of this inside looks like `[.x.]`, `[:x:]` or `[=x=]`, which the engine refuses.
bool looksLikePosixName(QStringView inside)
{
    const QStringView openers = u".:=";
    return inside.size() > 1 && openers.contains(inside.front()) && inside.front() == inside.back();
}

/// The characters of a class in which each stands for itself and brackets are escaped; nothing if
/// the class may mean more.
std::optional<QString> plainCharacters(QStringView inside)
{
    if (inside.isEmpty() || looksLikePosixName(inside))
        return std::nullopt;
    QString characters;
    for (qsizetype i = 0; i < inside.size(); ++i) {
        const bool isEscaped =
            inside[i] == u'\\' && i + 1 < inside.size() && isBracket(inside[i + 1]);
        if (isEscaped)
            ++i;
        else if (isSpecial(inside[i]))
            return std::nullopt;
        characters.append(inside[i]);
    }
    return characters;
}

/// The same characters as a string, not copied. Newer Qt deprecates matching of views under the
/// name that older Qt has for it; strings are matched under one name by all.
QString asString(QStringView text)
{
    return QString::fromRawData(text.data(), text.size());
}

/// Where the end of the text is: one final line feed may stand behind it.
QStringView withoutFinalLineFeed(QStringView text)
{
    return text.endsWith(QChar::LineFeed) ? text.chopped(1) : text;
}

qsizetype behindDigits(QStringView text, qsizetype position)
{
    while (position < text.size() && isAsciiDigit(text[position]))
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

/// The expression, compiled; nothing if it is not valid. Lack of memory is one of the engine's
/// errors as well; taken for one of the expression, it would make every text invalid for good. Qt
/// tells the errors apart by their texts alone.
std::optional<QRegularExpression> compiled(const QString& pattern)
{
    const QRegularExpression expression(pattern);
    if (expression.isValid())
        return expression;
    if (expression.errorString() == "failed to allocate heap memory"_L1)
        throw std::bad_alloc();
    return std::nullopt;
}

} // namespace

OligoScanner::OligoScanner(const OligoAlphabets& alphabets)
{
    m_isPlain = fillRoles(alphabets);
    if (m_isPlain)
        return;
    m_fullExpression = compiled(oligoFullExpression(alphabets));
    m_unitExpression = compiled(oligoUnitExpression(alphabets));
}

/// Fills the roles; false if they do not tell all that the alphabets mean.
bool OligoScanner::fillRoles(const OligoAlphabets& alphabets)
{
    const std::pair<const QString*, Role> classes[] = {
        {&alphabets.fivePrimeMarks, FivePrimeMark},
        {&alphabets.riboses, Ribose},
        {&alphabets.nucleobases, Nucleobase},
        {&alphabets.phosphates, Phosphate},
        {&alphabets.threePrimeMarks, ThreePrimeMark}};
    for (const auto& [inside, role] : classes) {
        const std::optional<QString> characters = plainCharacters(*inside);
        if (!characters)
            return false;
        for (const QChar character : *characters)
            addRole(character, role);
    }
    for (char16_t digit = u'0'; digit <= u'9'; ++digit)
        addRole(digit, LeadingDigit | FinalDigit);
    addRole(u'+', Sign);
    addRole(u'-', Sign);
    addRole(u'.', FullStop);
    return !hasAmbiguousMarks(alphabets);
}

void OligoScanner::addRole(QChar character, OligoRoles role)
{
    m_roles.insert(character, OligoRoles(m_roles.value(character) | role));
}

/// Whether a character can be a mark and part of the nucleotide next to it: then the expressions
/// prefer one of the two, and where they split is not told by the roles.
bool OligoScanner::hasAmbiguousMarks(const OligoAlphabets& alphabets) const
{
    const auto isAmbiguous = [this](QChar character) {
        const OligoRoles roles = m_roles.value(character);
        return ((roles & FivePrimeMark) && (roles & unitStart)) ||
               ((roles & ThreePrimeMark) && (roles & unitEnd));
    };
    const QString marks = alphabets.fivePrimeMarks + alphabets.threePrimeMarks;
    return std::any_of(marks.cbegin(), marks.cend(), isAmbiguous);
}

/// Follows all ways through the text at once: what may come next, given what might have come before
/// it.
bool OligoScanner::matches(QStringView text) const
{
    if (!m_isPlain)
        return m_fullExpression && m_fullExpression->match(asString(text)).hasMatch();
    OligoRoles next = textStart;
    for (const QChar character : withoutFinalLineFeed(text))
        next = successorsOfSets[next & m_roles.value(character)];
    return next & End;
}

std::optional<OligoScanner::Parts> OligoScanner::split(QStringView text) const
{
    if (!m_isPlain) {
        if (!m_fullExpression)
            return std::nullopt;
        const QRegularExpressionMatch match = m_fullExpression->match(asString(text));
        if (!match.hasMatch())
            return std::nullopt;
        return Parts{match.capturedView(FivePrimeGroup), match.capturedView(BodyGroup),
                     match.capturedView(ThreePrimeGroup)};
    }
    if (!matches(text))
        return std::nullopt;
    const QStringView whole = withoutFinalLineFeed(text);
    const qsizetype bodyStart = m_roles.value(whole.front()) & FivePrimeMark ? 1 : 0;
    const qsizetype bodyEnd = whole.size() - (m_roles.value(whole.back()) & ThreePrimeMark ? 1 : 0);
    return Parts{whole.first(bodyStart), whole.sliced(bodyStart, bodyEnd - bodyStart),
                 whole.sliced(bodyEnd)};
}

OligoUnits OligoScanner::units(QStringView body) const
{
    if (!m_isPlain)
        return unitsByEngine(body);
    OligoUnits units;
    for (qsizetype position = 0; position < body.size();) {
        std::optional<OligoUnit> unit;
        if (m_roles.value(body[position]) & Ribose)
            unit = unitAt(body, position, position + 1);
        if (!unit)
            unit = unitAt(body, position, position);
        if (unit)
            units.push_back(*unit);
        position += unit ? unit->text.size() : 1;
    }
    return units;
}

/// The unit that starts at `start` and has its base or number at `core`.
std::optional<OligoUnit> OligoScanner::unitAt(QStringView body, qsizetype start,
                                              qsizetype core) const
{
    if (core == body.size())
        return std::nullopt;
    const bool hasBase = m_roles.value(body[core]) & Nucleobase;
    const qsizetype coreEnd = hasBase ? core + 1 : behindNumber(body, core);
    if (coreEnd == core)
        return std::nullopt;
    qsizetype end = coreEnd;
    while (end < body.size() && (m_roles.value(body[end]) & Phosphate))
        ++end;

    OligoUnit unit;
    (hasBase ? unit.base : unit.number) = body.sliced(core, coreEnd - core);
    unit.ribose = body.sliced(start, core - start);
    unit.phosphates = body.sliced(coreEnd, end - coreEnd);
    unit.text = body.sliced(start, end - start);
    return unit;
}

OligoUnits OligoScanner::unitsByEngine(QStringView body) const
{
    OligoUnits units;
    if (!m_unitExpression)
        return units;
    QRegularExpressionMatchIterator matches = m_unitExpression->globalMatch(asString(body));
    while (matches.hasNext()) {
        const QRegularExpressionMatch match = matches.next();
        units.push_back({match.capturedView(), match.capturedView(RiboseGroup),
                         match.capturedView(BaseGroup), match.capturedView(NumberGroup),
                         match.capturedView(PhosphatesGroup)});
    }
    return units;
}

} // namespace chem
