#pragma once

#include <QString>

namespace chem {

struct StructuredMolecule;

/// The sequence text of a molecule, such as `A[*1]C/D[*1][]`: the codes of its residues, "[]" for
/// each modification, "[*n]" for each end of link n, and "/" between chains. Linear in the parts.
QString sequenceText(const StructuredMolecule& molecule);

} // namespace chem
