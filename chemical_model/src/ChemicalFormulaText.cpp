#include "ChemicalFactory.h"
#include "ChemicalFormula.h"
#include "NearlyEqual.h"
#include "TruncateToInt.h"

#include <QStringView>

#include <algorithm>

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

/// Reads one token, a symbol and the number behind it, into `counts`.
void readToken(QStringView token, QMap<QString, double>* counts)
{
    const auto symbolEnd =
        std::find_if_not(token.cbegin(), token.cend(), [](QChar c) { return c.isLetter(); });
    const qsizetype symbolLength = symbolEnd - token.cbegin();
    const QStringView number = token.sliced(symbolLength);
    const double count = number.isEmpty() ? 1.0 : number.toDouble();
    (*counts)[token.first(symbolLength).toString()] += count;
}

} // namespace

ChemicalFormula ChemicalFactory::parseChemicalFormula(const QString& text)
{
    const QString compact = withoutSeparators(text);
    const auto isTokenStart = [](QChar character) {
        return character.isUpper();
    };

    QMap<QString, double> counts;
    auto tokenStart = std::find_if(compact.cbegin(), compact.cend(), isTokenStart);
    while (tokenStart != compact.cend()) {
        const auto tokenEnd = std::find_if(tokenStart + 1, compact.cend(), isTokenStart);
        readToken(QStringView(tokenStart, tokenEnd), &counts);
        tokenStart = tokenEnd;
    }
    return ChemicalFormula(counts);
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
