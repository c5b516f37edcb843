#include "ChemicalFactory.h"
#include "ChemicalFormula.h"
#include "ElementSymbol.h"
#include "NearlyEqual.h"
#include "TruncateToInt.h"

#include <QStringView>
#include <QVarLengthArray>

#include <algorithm>
#include <map>
#include <utility>

using namespace Qt::StringLiterals;

namespace chem {

// Reading.

namespace {

bool isPartOfFormula(QChar character)
{
    return character.isLetterOrNumber() || character == u'-' || character == u'+' ||
           character == u'.';
}

QString withoutSeparators(QString text)
{
    return text.removeIf([](QChar character) { return !isPartOfFormula(character); });
}

/// A symbol and the number behind it.
struct Token
{
    QStringView symbol;
    double count;
};

using Tokens = QVarLengthArray<Token, 16>;

bool isDigit(QChar character)
{
    return character >= u'0' && character <= u'9';
}

/// The number behind a symbol; 0 if it is none, 1 without any.
double countOf(QStringView number)
{
    constexpr qsizetype exactDigits = 15; // what a double holds of any whole number
    if (number.isEmpty())
        return 1.0;
    if (number.size() > exactDigits || !std::all_of(number.cbegin(), number.cend(), isDigit))
        return number.toDouble();
    qint64 count = 0;
    for (const QChar digit : number)
        count = 10 * count + (digit.unicode() - u'0');
    return static_cast<double>(count);
}

Token readToken(QStringView text)
{
    const auto symbolEnd =
        std::find_if_not(text.cbegin(), text.cend(), [](QChar c) { return c.isLetter(); });
    const qsizetype symbolLength = symbolEnd - text.cbegin();
    return {text.first(symbolLength), countOf(text.sliced(symbolLength))};
}

/// The tokens of a text without separators: a capital begins each.
Tokens readTokens(QStringView text)
{
    const auto isTokenStart = [](QChar character) {
        return character.isUpper();
    };
    Tokens tokens;
    auto start = std::find_if(text.cbegin(), text.cend(), isTokenStart);
    while (start != text.cend()) {
        const auto end = std::find_if(start + 1, text.cend(), isTokenStart);
        tokens.append(readToken(QStringView(start, end)));
        start = end;
    }
    return tokens;
}

/// Ascending by symbol; equal symbols in the order of the text, so that their sum has its bits.
void sortBySymbol(Tokens* tokens)
{
    std::sort(tokens->begin(), tokens->end(), [](const Token& one, const Token& other) {
        const int order = compareSymbols(one.symbol, other.symbol);
        return order < 0 || (order == 0 && one.symbol.data() < other.symbol.data());
    });
}

/// Sums the counts of each symbol. One search for each element of a map would cost more than all
/// else.
ChemicalFormula sumOf(const Tokens& sorted)
{
    std::map<QString, double> counts;
    for (auto token = sorted.cbegin(); token != sorted.cend();) {
        const QStringView symbol = token->symbol;
        double count = 0.0;
        for (; token != sorted.cend() && compareSymbols(token->symbol, symbol) == 0; ++token)
            count += token->count;
        counts.emplace_hint(counts.cend(), symbolText(symbol), count);
    }
    QMap<QString, double> map(std::move(counts));
    return ChemicalFormula(map);
}

} // namespace

ChemicalFormula ChemicalFactory::parseChemicalFormula(const QString& text)
{
    const bool isCompact = std::all_of(text.cbegin(), text.cend(), isPartOfFormula);
    const QString compact = isCompact ? text : withoutSeparators(text);
    Tokens tokens = readTokens(compact);
    sortBySymbol(&tokens);
    return sumOf(tokens);
}

// Writing. The forms differ in order, filter and number format on purpose: people read Hill order,
// calculators want every number, and a difference formula is split into its gains and losses.

namespace {

QString sixDigits(double count)
{
    return QString::number(count, 'g', 6);
}

QString inParentheses(double count)
{
    return u'(' + sixDigits(count) + u')';
}

/// Carbon or hydrogen at the head of the display form: a count of 1 is printed.
QString leadingElement(const QString& symbol, double count)
{
    if (count > 0.0)
        return symbol + sixDigits(count);
    return count < 0.0 ? symbol + inParentheses(count) : QString();
}

/// Any other element of the display form: a count of 1 is left out, as is the whole entry at zero.
QString trailingElement(const QString& symbol, double count)
{
    if (nearlyEqual(count, 0.0))
        return QString();
    if (nearlyEqual(count, 1.0))
        return symbol;
    return symbol + (count < 0.0 ? inParentheses(count) : sixDigits(count));
}

} // namespace

QString ChemicalFormula::toString() const
{
    const QString carbon = u"C"_s;
    const QString hydrogen = u"H"_s;
    const double carbonCount = m_elementCountMap.value(carbon);
    QString text = leadingElement(carbon, carbonCount);

    QString hydrogenText;
    if (carbonCount > 0.0)
        hydrogenText = leadingElement(hydrogen, m_elementCountMap.value(hydrogen));
    text += hydrogenText;

    for (auto entry = m_elementCountMap.cbegin(); entry != m_elementCountMap.cend(); ++entry) {
        const bool alreadyWritten =
            entry.key() == carbon || (entry.key() == hydrogen && !hydrogenText.isEmpty());
        if (!alreadyWritten)
            text += trailingElement(entry.key(), entry.value());
    }
    return text;
}

QString ChemicalFormula::toIsoFormulaString() const
{
    return isValid() ? positiveFormulaString() : QString(); // a valid count is not below zero
}

QString ChemicalFormula::toThermoFormulaString() const
{
    if (!isValid())
        return QString();
    QString text;
    for (auto entry = m_elementCountMap.cbegin(); entry != m_elementCountMap.cend(); ++entry) {
        const int count = truncateToInt(entry.value());
        if (count != 0)
            text += entry.key() + QString::number(count);
    }
    return text;
}

QString ChemicalFormula::positiveFormulaString() const
{
    QString text;
    for (auto entry = m_elementCountMap.cbegin(); entry != m_elementCountMap.cend(); ++entry) {
        if (entry.value() > 0.0)
            text += entry.key() + sixDigits(entry.value());
    }
    return text;
}

QString ChemicalFormula::negativeFormulaString() const
{
    QString text;
    for (auto entry = m_elementCountMap.cbegin(); entry != m_elementCountMap.cend(); ++entry) {
        if (entry.value() < 0.0)
            text += entry.key() + sixDigits(-entry.value());
    }
    return text;
}

} // namespace chem
