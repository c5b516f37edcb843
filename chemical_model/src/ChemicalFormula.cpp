#include "ChemicalFormula.h"

#include "TruncateToInt.h"

#include <algorithm>

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

} // namespace chem
