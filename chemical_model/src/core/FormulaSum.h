#pragma once

#include "ChemicalFormula.h"
#include "core/ElementSymbol.h"

#include <QString>

#include <array>
#include <vector>

namespace chem {

/// Adds many formulas up, entry by entry in the order given, so that every count has the bits that
/// ChemicalFormula::operator+=() would give it.
///
/// An array by letter takes the place of the map for C, H, N, O, P, S and the like, and a sorted
/// list for all other symbols: an element costs one addition and not a tree search.
class FormulaSum
{
public:
    FormulaSum() = default;

    /// Starts from the counts of `first` as they stand.
    explicit FormulaSum(const ChemicalFormula& first);

    void add(const ChemicalFormula& formula);
    ChemicalFormula result() const;

private:
    struct Entry
    {
        QString symbol;
        double count;
    };
    std::array<double, letterCount> m_letterCounts{};
    std::array<bool, letterCount> m_hasLetter{};
    std::vector<Entry> m_otherEntries; ///< Ascending by symbol.
};

} // namespace chem
