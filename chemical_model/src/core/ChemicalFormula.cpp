#include "ChemicalFormula.h"

#include "support/NearlyEqual.h"
#include "support/TruncateToInt.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace chem {

namespace {

/// A whole number that 32 bits hold, zero or above. NaN fails every comparison and so is none.
bool isRealCount(double count)
{
    return count >= 0.0 && static_cast<double>(truncateToInt(count)) - count >= 0.0;
}

/// The two halves of a difference formula, by the sign of their counts.
enum class Half { Gains, Losses };

/// Calls `visit` with the symbol and the magnitude of each entry of one half, in the order of the
/// map.
template <typename Visit>
void forEachOf(Half half, const QMap<QString, double>& counts, const Visit& visit)
{
    for (auto entry = counts.cbegin(); entry != counts.cend(); ++entry) {
        const double magnitude = half == Half::Gains ? entry.value() : -entry.value();
        if (magnitude > 0.0)
            visit(entry.key(), magnitude);
    }
}

void writeCounts(const QMap<QString, double>& all, Half half, QList<QString>* elements,
                 QList<int>* counts)
{
    elements->clear();
    counts->clear();
    forEachOf(half, all, [elements, counts](const QString& symbol, double magnitude) {
        elements->append(symbol);
        counts->append(truncateToInt(magnitude));
    });
}

} // namespace

ChemicalFormula::ChemicalFormula(QMap<QString, double>& elementCountMap)
    : m_elementCountMap(elementCountMap)
{
}

bool ChemicalFormula::isEmpty() const
{
    return m_elementCountMap.isEmpty();
}

bool ChemicalFormula::isValid() const
{
    return std::all_of(m_elementCountMap.cbegin(), m_elementCountMap.cend(), isRealCount);
}

int ChemicalFormula::elementCount(const QString& element) const
{
    return truncateToInt(m_elementCountMap.value(element));
}

void ChemicalFormula::positiveElementCounts(QList<QString>* elements, QList<int>* counts) const
{
    writeCounts(m_elementCountMap, Half::Gains, elements, counts);
}

void ChemicalFormula::negativeElementCounts(QList<QString>* elements, QList<int>* counts) const
{
    writeCounts(m_elementCountMap, Half::Losses, elements, counts);
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

/// The entries of one half, each with its number.
QString entriesText(const QMap<QString, double>& counts, Half half)
{
    QString text;
    forEachOf(half, counts, [&text](const QString& symbol, double magnitude) {
        text += symbol + sixDigits(magnitude);
    });
    return text;
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
    return entriesText(m_elementCountMap, Half::Gains);
}

QString ChemicalFormula::negativeFormulaString() const
{
    return entriesText(m_elementCountMap, Half::Losses);
}

void ChemicalFormula::operator+=(const ChemicalFormula& other)
{
    const QMap<QString, double> addends = other.m_elementCountMap; // other may be this formula
    for (auto addend = addends.cbegin(); addend != addends.cend(); ++addend)
        m_elementCountMap[addend.key()] += addend.value();
}

void ChemicalFormula::operator-=(const ChemicalFormula& other)
{
    const QMap<QString, double> subtrahends = other.m_elementCountMap; // other may be this formula
    for (auto subtrahend = subtrahends.cbegin(); subtrahend != subtrahends.cend(); ++subtrahend)
        m_elementCountMap[subtrahend.key()] -= subtrahend.value();
}

void ChemicalFormula::operator*=(int factor)
{
    for (double& count : m_elementCountMap)
        count *= factor;
}

ChemicalFormula ChemicalFormula::operator+(const ChemicalFormula& other) const
{
    ChemicalFormula sum = *this;
    sum += other;
    return sum;
}

ChemicalFormula ChemicalFormula::operator-(const ChemicalFormula& other) const
{
    ChemicalFormula difference = *this;
    difference -= other;
    return difference;
}

} // namespace chem
