#include "Composition.h"
#include "composition/AtomSums.h"
#include "composition/Elements.h"
#include "support/TextCursor.h"

#include <algorithm>
#include <limits>
#include <optional>
#include <vector>

using namespace Qt::StringLiterals;

namespace ions {

namespace {

/// What a formula is made of. A part between full stops is a group as well.
struct Token
{
    enum Kind { Open, Close, Atoms };

    Kind kind = Atoms;
    Atom atom;
    qint64 count = 1;       ///< Of atoms, or the factor of the group that closes here.
    qsizetype position = 0; ///< Where its count stands in the text, or would.
};

/// Splits a formula into tokens. Groups are kept track of in a list, so that no text can exhaust
/// the stack.
class FormulaTokens
{
public:
    explicit FormulaTokens(QStringView text)
        : m_cursor(text)
    {
    }

    Parsed<std::vector<Token>> read()
    {
        openPart(1);
        do {
            if (const auto error = readUnit())
                return *error;
        } while (!m_cursor.atEnd());
        if (m_openGroups.size() > 1)
            return m_cursor.expected(u"an element, an isotope, a group or \")\""_s);
        if (m_tokens.back().kind == Token::Open)
            return m_cursor.expected(u"an element, an isotope such as [13C6] or a group"_s);
        closePart();
        return std::move(m_tokens);
    }

private:
    using Failure = std::optional<Error>;

    Failure readUnit()
    {
        const char16_t next = m_cursor.peek();
        if (next == u'(')
            return openGroup();
        if (next == u')' && m_openGroups.size() > 1 && m_tokens.back().kind != Token::Open)
            return closeGroup();
        if (next == u'[')
            return readIsotope();
        if ((next == u'.' || next == u'\u00b7') && isPartComplete())
            return nextPart();
        return readElement();
    }

    bool isPartComplete() const
    {
        return m_openGroups.size() == 1 && m_tokens.back().kind != Token::Open;
    }

    void openPart(int factor)
    {
        m_partFactor = factor;
        m_openGroups = {m_cursor.position()};
        m_tokens.push_back({Token::Open, {}, 1, m_cursor.position()});
    }

    void closePart() { m_tokens.push_back({Token::Close, {}, m_partFactor, m_openGroups.front()}); }

    Failure nextPart()
    {
        closePart();
        m_cursor.skip();
        int factor = 1;
        if (m_cursor.atDigit()) {
            const Parsed<int> number = m_cursor.takeSignedCount();
            if (!number)
                return number.error();
            factor = *number;
        }
        openPart(factor);
        return {};
    }

    Failure openGroup()
    {
        m_tokens.push_back({Token::Open, {}, 1, m_cursor.position()});
        m_openGroups.push_back(m_cursor.position());
        m_cursor.skip();
        return {};
    }

    Failure closeGroup()
    {
        m_cursor.skip();
        m_openGroups.pop_back();
        return push(Token::Close, {});
    }

    Failure readElement()
    {
        static const QString wanted = u"an element, an isotope such as [13C6] or a group"_s;
        const char16_t next = m_cursor.peek();
        const qsizetype length = symbolLength(m_cursor.rest());
        if (length == 0 && (next == u'D' || next == u'T')) {
            m_cursor.skip();
            return push(Token::Atoms, {1, next == u'D' ? quint16(2) : quint16(3)});
        }
        if (length == 0)
            return m_cursor.expected(wanted);
        const Atom atom{atomicNumberOf(m_cursor.rest().first(length)), 0};
        m_cursor.skip(length);
        return push(Token::Atoms, atom);
    }

    /// An isotope, whose count stands inside its brackets or behind them.
    Failure readIsotope()
    {
        m_cursor.skip();
        const qsizetype start = m_cursor.position();
        const Parsed<int> massNumber = m_cursor.takeNumber();
        if (!massNumber)
            return m_cursor.atDigit() || m_cursor.position() > start
                       ? massNumber.error()
                       : m_cursor.expected(u"the mass number of an isotope, as in [13C6]"_s);
        const qsizetype length = symbolLength(m_cursor.rest());
        if (length == 0)
            return m_cursor.expected(u"the symbol of an element, as in [13C6]"_s);
        const quint8 number = atomicNumberOf(m_cursor.rest().first(length));
        if (*massNumber < number || *massNumber > 3 * number)
            return Error{u"expected a mass number that "_s + symbolOf(number) + u" can have"_s,
                         start};
        m_cursor.skip(length);
        const Atom atom{number, quint16(*massNumber)};
        if (m_cursor.take(u']'))
            return push(Token::Atoms, atom);
        if (const auto error = push(Token::Atoms, atom))
            return error;
        if (!m_cursor.take(u']'))
            return m_cursor.expected(u"\"]\""_s);
        return {};
    }

    /// Adds a token with the count that comes next, 1 if there is none.
    Failure push(Token::Kind kind, Atom atom)
    {
        const qsizetype position = m_cursor.position();
        qint64 count = 1;
        if (m_cursor.atDigit() || m_cursor.peek() == u'-') {
            const Parsed<int> number = m_cursor.takeSignedCount();
            if (!number)
                return number.error();
            count = *number;
        }
        m_tokens.push_back({kind, atom, count, position});
        return {};
    }

    TextCursor m_cursor;
    std::vector<Token> m_tokens;
    std::vector<qsizetype> m_openGroups; ///< Where they open, the part itself first.
    int m_partFactor = 1;
};

/// Multiplies counts by the factors of the groups around them, from the right, where the factors
/// stand. Products beyond any count stay beyond.
void multiplyOut(std::vector<Token>& tokens)
{
    constexpr qint64 beyond = qint64(std::numeric_limits<int>::max()) + 1;
    const auto product = [beyond](qint64 left, qint64 right) {
        return std::clamp(left * right, -beyond, beyond);
    };
    std::vector<qint64> factors = {1};
    for (auto token = tokens.rbegin(); token != tokens.rend(); ++token) {
        if (token->kind == Token::Close)
            factors.push_back(product(factors.back(), token->count));
        else if (token->kind == Token::Open)
            factors.pop_back();
        else
            token->count = product(token->count, factors.back());
    }
}

} // namespace

Parsed<Composition> Composition::read(QStringView text)
{
    Parsed<std::vector<Token>> read = FormulaTokens(text).read();
    if (!read)
        return read.error();
    std::vector<Token> tokens = *std::move(read);
    multiplyOut(tokens);
    AtomSums sums;
    for (const Token& token : tokens) {
        if (token.kind == Token::Atoms)
            sums.add(token.atom, token.count, token.position);
    }
    return sums.total();
}

} // namespace ions
