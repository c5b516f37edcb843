#include "FormulaSum.h"

#include <QStringView>

#include <string_view>

namespace chem {

namespace {

/// The order of QString. Symbols have one or two characters, for which a call costs more than the
/// comparison.
int compareSymbols(QStringView one, QStringView other)
{
    const auto viewOf = [](QStringView text) {
        return std::u16string_view(text.utf16(), static_cast<std::size_t>(text.size()));
    };
    return viewOf(one).compare(viewOf(other));
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
        int order = 1;
        while (entry != m_entries.end() &&
               (order = compareSymbols(entry->symbol, addend.key())) < 0)
            ++entry;
        if (entry == m_entries.end() || order > 0)
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
