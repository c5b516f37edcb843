#include "OligoScanner.h"

#include <QVarLengthArray>

using namespace Qt::StringLiterals;

namespace chem {

namespace {

/// What a character can be. One character may be several things.
enum Role : quint8 {
    FivePrimeMark = 1,
    Ribose = 2,
    Nucleobase = 4,
    Phosphate = 8,
    ThreePrimeMark = 16,
    Sign = 32,
    Digit = 64,
    FullStop = 128,
};

/// The points of the full expression from which the end of the text can be reached, as a set of
/// bits. Each point lies before what it is named after.
enum Point : quint32 {
    Start = 1,
    Unit = 2,
    Core = 4,
    NumberStart = 8,
    NumberDigits = 16,
    NumberStop = 32,
    FirstLastDigit = 64,
    MoreLastDigits = 128,
    Phosphates = 256,
    UnitEnd = 512,
    Tail = 1024,
    End = 2048,
};
using Points = quint32;

constexpr qsizetype usualLength = 256;

/// Whether the expression may end at `position`: at the end, or before one final line feed.
bool isEnd(QStringView text, qsizetype position)
{
    return position == text.size() ||
           (position == text.size() - 1 && text[position] == QChar::LineFeed);
}

/// `point` if the character can play `role` and `next` holds `target`.
constexpr Points step(Point point, quint8 mask, Role role, Points next, Point target)
{
    return (mask & role) && (next & target) ? Points(point) : Points(0);
}

/// `point` if `points` holds `other`, to which it leads without a character.
constexpr Points through(Point point, Points points, Point other)
{
    return points & other ? Points(point) : Points(0);
}

/// The points before a character from which the end can be reached, given those behind it.
constexpr Points pointsBefore(quint8 mask, Points next, bool isAtEnd)
{
    Points points = isAtEnd ? Points(End) : Points(0);
    points |= step(FirstLastDigit, mask, Digit, next, MoreLastDigits);
    points |= step(NumberStop, mask, FullStop, next, FirstLastDigit) |
              through(NumberStop, points, FirstLastDigit);
    points |= step(NumberDigits, mask, Digit, next, NumberDigits) |
              through(NumberDigits, points, NumberStop);
    points |= step(NumberStart, mask, Sign, next, NumberDigits) |
              through(NumberStart, points, NumberDigits);
    points |= step(Core, mask, Nucleobase, next, Phosphates) | through(Core, points, NumberStart);
    points |= step(Unit, mask, Ribose, next, Core) | through(Unit, points, Core);
    points |= step(Tail, mask, ThreePrimeMark, next, End) | through(Tail, points, End);
    points |= through(UnitEnd, points, Unit) | through(UnitEnd, points, Tail);
    points |=
        step(Phosphates, mask, Phosphate, next, Phosphates) | through(Phosphates, points, UnitEnd);
    points |= step(MoreLastDigits, mask, Digit, next, MoreLastDigits) |
              through(MoreLastDigits, points, Phosphates);
    points |= step(Start, mask, FivePrimeMark, next, Unit) | through(Start, points, Unit);
    return points;
}

/// The position behind the character at `position`, which may be a surrogate pair.
qsizetype positionBehind(QStringView text, qsizetype position)
{
    return position + (text[position].isHighSurrogate() ? 2 : 1);
}

bool isAsciiDigit(QStringView text, qsizetype position)
{
    return position < text.size() && text[position] >= u'0' && text[position] <= u'9';
}

qsizetype behindDigits(QStringView text, qsizetype position)
{
    while (isAsciiDigit(text, position))
        ++position;
    return position;
}

/// The position behind the longest number that starts at `start`, or `start` if there is none.
qsizetype behindNumber(QStringView text, qsizetype start)
{
    const bool hasSign = start < text.size() && (text[start] == u'-' || text[start] == u'+');
    const qsizetype digits = hasSign ? start + 1 : start;
    const qsizetype stop = behindDigits(text, digits);
    if (stop < text.size() && text[stop] == u'.' && isAsciiDigit(text, stop + 1))
        return behindDigits(text, stop + 1);
    return stop > digits ? stop : start;
}

/// Whether the inside of a character class ends where it should: every bracket in it is escaped,
/// and no escape takes the closing bracket away.
bool isSelfContained(QStringView alphabet)
{
    if (alphabet.isEmpty() || alphabet == u'^')
        return false;
    for (qsizetype i = 0; i < alphabet.size(); ++i) {
        if (alphabet[i] == u'[' || alphabet[i] == u']')
            return false;
        if (alphabet[i] != u'\\')
            continue;
        ++i; // the escaped character
        if (i == alphabet.size() || u"QEc"_s.contains(alphabet[i]))
            return false;
    }
    return true;
}

/// Whether the inside of a character class stands for its characters alone, escaped brackets
/// included.
bool isPlain(QStringView alphabet)
{
    for (qsizetype i = 0; i < alphabet.size(); ++i) {
        const bool isEscapedBracket =
            alphabet[i] == u'\\' && (alphabet[i + 1] == u'[' || alphabet[i + 1] == u']');
        if (isEscapedBracket)
            ++i;
        else if (alphabet[i] == u'\\' || alphabet[i] == u'-' || alphabet[i] == u'^' ||
                 alphabet[i].isSurrogate())
            return false;
    }
    return true;
}

} // namespace

OligoScanner::OligoScanner(const OligoAlphabets& alphabets)
{
    const std::pair<QString, Role> roles[] = {{alphabets.fivePrimeMarks, FivePrimeMark},
                                              {alphabets.riboses, Ribose},
                                              {alphabets.nucleobases, Nucleobase},
                                              {alphabets.phosphates, Phosphate},
                                              {alphabets.threePrimeMarks, ThreePrimeMark}};
    for (const auto& [alphabet, role] : roles) {
        if (!isSelfContained(alphabet)) {
            fallBackToEngine(alphabets);
            return;
        }
    }
    for (const auto& [alphabet, role] : roles)
        addAlphabet(alphabet, role);
    for (char16_t digit = u'0'; digit <= u'9'; ++digit)
        m_asciiMasks[digit] |= Digit;
    m_asciiMasks['+'] |= Sign;
    m_asciiMasks['-'] |= Sign;
    m_asciiMasks['.'] |= FullStop;
}

void OligoScanner::addAlphabet(const QString& alphabet, Mask mask)
{
    if (!isPlain(alphabet))
        return addOddAlphabet(alphabet, mask);
    for (const QChar character : alphabet) {
        if (character == u'\\') // escapes a bracket
            continue;
        if (character.unicode() < asciiSize)
            m_asciiMasks[character.unicode()] |= mask;
        else
            m_otherMasks[character.unicode()] |= mask;
    }
}

void OligoScanner::addOddAlphabet(const QString& alphabet, Mask mask)
{
    const QRegularExpression expression(u"\\A["_s + alphabet + u"]\\z"_s);
    if (!expression.isValid()) {
        m_refusesAll = true; // the expressions that hold this class are invalid too
        return;
    }
    for (char16_t character = 0; character < asciiSize; ++character) {
        if (expression.match(QString(QChar(character))).hasMatch())
            m_asciiMasks[character] |= mask;
    }
    m_oddAlphabets.push_back({expression, mask});
}

// Where keys break the structure of a class, it swallows parentheses of the expression. What still
// compiles then has mostly lost its repeated group, so the engine's limit on nested repeats, which
// is why there is a scanner at all, hardly matters.
void OligoScanner::fallBackToEngine(const OligoAlphabets& alphabets)
{
    m_usesEngine = true;
    m_fullExpression.setPattern(oligoFullExpression(alphabets));
    m_unitExpression.setPattern(oligoUnitExpression(alphabets));
    m_refusesAll = !m_fullExpression.isValid();
}

OligoScanner::Mask OligoScanner::maskOf(char32_t character) const
{
    if (character < asciiSize)
        return m_asciiMasks[character];
    Mask mask = m_otherMasks.value(character);
    for (const OddAlphabet& alphabet : m_oddAlphabets) {
        if (alphabet.expression.match(QString::fromUcs4(&character, 1)).hasMatch())
            mask |= alphabet.mask;
    }
    return mask;
}

OligoScanner::Mask OligoScanner::maskAt(QStringView text, qsizetype position) const
{
    const QChar character = text[position];
    return character.isHighSurrogate()
               ? maskOf(QChar::surrogateToUcs4(character, text[position + 1]))
               : maskOf(character.unicode());
}

/// Walks from the end of `text` to its start and calls `visit` with each position and the points at
/// it from which the end can be reached. False if a lone surrogate makes the text unreadable.
template <typename Visit>
bool OligoScanner::walkBackwards(QStringView text, Visit visit) const
{
    Points points = pointsBefore(0, 0, true);
    visit(text.size(), points);
    for (qsizetype position = text.size() - 1; position >= 0; --position) {
        if (text[position].isSurrogate()) {
            const bool isPair = text[position].isLowSurrogate() && position > 0 &&
                                text[position - 1].isHighSurrogate();
            if (!isPair)
                return false;
            --position;
        }
        points = pointsBefore(maskAt(text, position), points, isEnd(text, position));
        visit(position, points);
    }
    return true;
}

bool OligoScanner::matches(QStringView text) const
{
    if (m_refusesAll)
        return false;
    if (m_usesEngine)
        return splitByEngine(text).has_value();
    Points first = 0;
    return walkBackwards(text, [&first](qsizetype, Points points) { first = points; }) &&
           (first & Start);
}

/// The walk from the start of a text that is in the grammar.
struct OligoScanner::Walk
{
    const OligoScanner& scanner;
    QStringView text;
    const Points* points;
    qsizetype position = 0;

    /// Takes the next character if it can play `role` and the end can be reached from `target`
    /// behind it.
    bool take(Role role, Point target)
    {
        if (position == text.size() || !(scanner.maskAt(text, position) & role))
            return false;
        const qsizetype behind = positionBehind(text, position);
        if (!(points[behind] & target))
            return false;
        position = behind;
        return true;
    }

    void walkNumber()
    {
        take(Sign, NumberDigits);
        while (take(Digit, NumberDigits)) {
        }
        take(FullStop, FirstLastDigit);
        take(Digit, MoreLastDigits);
        while (take(Digit, MoreLastDigits)) {
        }
    }

    void walkUnit()
    {
        take(Ribose, Core);
        if (!take(Nucleobase, Phosphates))
            walkNumber();
        while (take(Phosphate, Phosphates)) {
        }
    }

    Parts parts()
    {
        Parts parts;
        take(FivePrimeMark, Unit);
        parts.fivePrimeMark = text.first(position);
        const qsizetype bodyStart = position;
        do {
            walkUnit();
        } while (points[position] & Unit);
        const qsizetype bodyEnd = position;
        parts.body = text.sliced(bodyStart, bodyEnd - bodyStart);
        take(ThreePrimeMark, End);
        parts.threePrimeMark = text.sliced(bodyEnd, position - bodyEnd);
        return parts;
    }
};

std::optional<OligoScanner::Parts> OligoScanner::split(QStringView text) const
{
    if (m_refusesAll)
        return std::nullopt;
    if (m_usesEngine)
        return splitByEngine(text);

    QVarLengthArray<Points, usualLength> points(text.size() + 1);
    const bool isReadable = walkBackwards(
        text, [&points](qsizetype position, Points alive) { points[position] = alive; });
    if (!isReadable || !(points[0] & Start))
        return std::nullopt;
    Walk walk{*this, text, points.constData()};
    return walk.parts();
}

std::vector<OligoUnit> OligoScanner::units(QStringView body) const
{
    if (m_usesEngine)
        return unitsByEngine(body);
    std::vector<OligoUnit> units;
    qsizetype position = 0;
    while (position < body.size()) {
        if (const std::optional<OligoUnit> unit = unitAt(body, position)) {
            units.push_back(*unit);
            position += unit->text.size();
        } else {
            position = positionBehind(body, position);
        }
    }
    return units;
}

/// The unit that starts at `start`, with a ribose letter if it can have one.
std::optional<OligoUnit> OligoScanner::unitAt(QStringView body, qsizetype start) const
{
    if (maskAt(body, start) & Ribose) {
        const qsizetype core = positionBehind(body, start);
        if (std::optional<OligoUnit> unit = coreAt(body, core)) {
            unit->ribose = body.sliced(start, core - start);
            unit->text = body.sliced(start, core - start + unit->text.size());
            return unit;
        }
    }
    return coreAt(body, start);
}

/// The base or number that starts at `start`, with the phosphates behind it.
std::optional<OligoUnit> OligoScanner::coreAt(QStringView body, qsizetype start) const
{
    if (start == body.size())
        return std::nullopt;
    OligoUnit unit;
    qsizetype position = start;
    if (maskAt(body, start) & Nucleobase) {
        position = positionBehind(body, start);
        unit.base = body.sliced(start, position - start);
    } else {
        position = behindNumber(body, start);
        unit.number = body.sliced(start, position - start);
    }
    if (position == start)
        return std::nullopt;

    const qsizetype phosphates = position;
    while (position < body.size() && (maskAt(body, position) & Phosphate))
        position = positionBehind(body, position);
    unit.phosphates = body.sliced(phosphates, position - phosphates);
    unit.text = body.sliced(start, position - start);
    return unit;
}

std::optional<OligoScanner::Parts> OligoScanner::splitByEngine(QStringView text) const
{
    const QRegularExpressionMatch match = m_fullExpression.match(text);
    if (!match.hasMatch())
        return std::nullopt;
    return Parts{match.capturedView(1), match.capturedView(2), match.capturedView(6)};
}

std::vector<OligoUnit> OligoScanner::unitsByEngine(QStringView body) const
{
    std::vector<OligoUnit> units;
    if (!m_unitExpression.isValid())
        return units;
    QRegularExpressionMatchIterator matches = m_unitExpression.globalMatch(body);
    while (matches.hasNext()) {
        const QRegularExpressionMatch match = matches.next();
        units.push_back({match.capturedView(0), match.capturedView(1), match.capturedView(3),
                         match.capturedView(4), match.capturedView(5)});
    }
    return units;
}

} // namespace chem
