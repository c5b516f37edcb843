#pragma once

#include "StructuredMolecule.h"

#include <QList>

#include <utility>

namespace chem {

/// Where a residue stands in a molecule: the index of its chain, then its own in Chain::residues().
using ResiduePosition = std::pair<int, int>;

/// Whether there is such a list entry.
template <typename T>
bool hasIndex(const QList<T>& list, int index)
{
    return index >= 0 && index < list.size();
}

/// Whether there is such a residue.
inline bool exists(const QList<Chain>& chains, const ResiduePosition& position)
{
    return hasIndex(chains, position.first) &&
           hasIndex(chains[position.first].residues(), position.second);
}

} // namespace chem
