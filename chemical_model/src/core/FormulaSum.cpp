#include "core/FormulaSum.h"

#include <algorithm>
#include <map>

namespace chem {

FormulaSum::FormulaSum(const ChemicalFormula& first)
{
    const QMap<QString, double>& counts = first.elementCountMap();
    for (auto entry = counts.cbegin(); entry != counts.cend(); ++entry) {
        const int letter = letterIndex(entry.key());
        if (letter < 0) {
            m_otherEntries.push_back({entry.key(), entry.value()});
            continue;
        }
        m_letterCounts[static_cast<std::size_t>(letter)] = entry.value();
        m_hasLetter[static_cast<std::size_t>(letter)] = true;
    }
}

void FormulaSum::add(const ChemicalFormula& formula)
{
    const QMap<QString, double>& addends = formula.elementCountMap();
    const auto isBefore = [](const Entry& entry, const QString& symbol) {
        return compareSymbols(entry.symbol, symbol) < 0;
    };
    auto other = m_otherEntries.begin();
    for (auto addend = addends.cbegin(); addend != addends.cend(); ++addend) {
        const int letter = letterIndex(addend.key());
        if (letter >= 0) {
            m_letterCounts[static_cast<std::size_t>(letter)] += addend.value();
            m_hasLetter[static_cast<std::size_t>(letter)] = true;
            continue;
        }
        // Both run upwards, so the search goes on from the last place.
        other = std::lower_bound(other, m_otherEntries.end(), addend.key(), isBefore);
        if (other == m_otherEntries.end() || other->symbol != addend.key())
            other = m_otherEntries.insert(other, {addend.key(), 0.0});
        other->count += addend.value();
    }
}

ChemicalFormula FormulaSum::result() const
{
    std::map<QString, double> counts;
    const auto append = [&counts](const QString& symbol, double count) {
        counts.emplace_hint(counts.cend(), symbol, count);
    };
    auto other = m_otherEntries.cbegin();
    for (std::size_t letter = 0; letter < m_letterCounts.size(); ++letter) {
        if (!m_hasLetter[letter])
            continue;
        const QChar capital(static_cast<char16_t>(u'A' + letter));
        const QString symbol = symbolText(QStringView(&capital, 1));
        for (; other != m_otherEntries.cend() && compareSymbols(other->symbol, symbol) < 0; ++other)
            append(other->symbol, other->count);
        append(symbol, m_letterCounts[letter]);
    }
    for (; other != m_otherEntries.cend(); ++other)
        append(other->symbol, other->count);
    QMap<QString, double> map(std::move(counts));
    return ChemicalFormula(map);
}

} // namespace chem
