#pragma once

#include "LinearComplex.h"

namespace chem {

/// Puts a terminal or monomer into the next place of a complex.
inline void appendResidue(const NamedMolecule& residue,
                          QList<QSharedPointer<ComplexResidue>>* residues)
{
    const int position = static_cast<int>(residues->size());
    residues->append(QSharedPointer<ComplexResidue>::create(residue, position));
}

} // namespace chem
