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
    elements->clear();
    counts->clear();
    for (auto entry = m_elementCountMap.cbegin(); entry != m_elementCountMap.cend(); ++entry) {
        if (entry.value() > 0.0) {
            elements->append(entry.key());
            counts->append(truncateToInt(entry.value()));
        }
    }
}

void ChemicalFormula::negativeElementCounts(QList<QString>* elements, QList<int>* counts) const
{
    elements->clear();
    counts->clear();
    for (auto entry = m_elementCountMap.cbegin(); entry != m_elementCountMap.cend(); ++entry) {
        if (entry.value() < 0.0) {
            elements->append(entry.key());
            counts->append(truncateToInt(-entry.value()));
        }
    }
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
