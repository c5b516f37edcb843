#include "FormulaSum.h"

namespace chem {

void FormulaSum::add(const ChemicalFormula& formula)
{
    const QMap<QString, double>& addends = formula.elementCountMap();
    auto entry = m_entries.begin();
    for (auto addend = addends.cbegin(); addend != addends.cend(); ++addend) {
        while (entry != m_entries.end() && entry->symbol < addend.key())
            ++entry;
        if (entry == m_entries.end() || entry->symbol != addend.key())
            entry = m_entries.insert(entry, {addend.key(), 0.0});
        entry->count += addend.value();
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
