#pragma once

#include "StructuredMolecule.h"

namespace chem {

/// The molecule as a value that a step can change, read through the questions that any entity
/// answers: an amino acid gives its type, texts, formula and masses, and empty lists.
StructuredMolecule structuredCopy(const MoleculeEntity& molecule);

/// The same without formula and masses, for a step that sums these anew: computing them can be
/// long where the molecule does not store them.
StructuredMolecule copyWithoutTotals(const MoleculeEntity& molecule);

} // namespace chem
