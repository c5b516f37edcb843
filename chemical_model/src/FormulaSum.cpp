#include "FormulaSum.h"

#include <algorithm>

namespace chem {

namespace {

/// Symbols have a letter or two: comparing them here is cheaper than a call into the text library.
bool isSameSymbol(const QString& a, const QString& b)
{
    return std::ranges::equal(a, b);
}

} // namespace

FormulaSum::FormulaSum(const ChemicalFormula& first)
{
    const QMap<QString, double>& counts = first.elementCountMap();
    for (auto entry = counts.cbegin(); entry != counts.cend(); ++entry)
        m_entries.push_back({entry.key(), entry.value()});
}

void FormulaSum::add(const ChemicalFormula& formula)
{
    const QMap<QString, double>& addends = formula.elementCountMap();
    auto entry = m_entries.begin();
    for (auto addend = addends.cbegin(); addend != addends.cend(); ++addend) {
        const QString& symbol = addend.key();
        while (entry != m_entries.end() && !isSameSymbol(entry->symbol, symbol) &&
               entry->symbol < symbol)
            ++entry;
        if (entry == m_entries.end() || !isSameSymbol(entry->symbol, symbol))
            entry = m_entries.insert(entry, {symbol, 0.0});
        entry->count += addend.value();
        ++entry;
    }
}

ChemicalFormula FormulaSum::result() const
{
    QMap<QString, double> counts;
    for (const Entry& entry : m_entries)
        counts.insert(counts.cend(), entry.symbol, entry.count);
    return ChemicalFormula(counts);
}

} // namespace chem
