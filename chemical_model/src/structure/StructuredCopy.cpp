#include "structure/StructuredCopy.h"

#include "structure/Totals.h"

namespace chem {

StructuredMolecule structuredCopy(const MoleculeEntity& molecule)
{
    StructuredMolecule copy = copyWithoutTotals(molecule);
    writeTotals(totalsOf(molecule), &copy);
    return copy;
}

StructuredMolecule copyWithoutTotals(const MoleculeEntity& molecule)
{
    StructuredMolecule copy;
    copy.type = molecule.type();
    copy.chains = molecule.chains();
    copy.links = molecule.links();
    copy.modifications = molecule.modifications();
    copy.name = molecule.name();
    copy.code = molecule.code();
    copy.description = molecule.description();
    copy.transformations = molecule.transformations();
    return copy;
}

} // namespace chem
