#include "EstablishLink.h"

#include "Molecule.h"
#include "TransformationHistory.h"

#include <utility>

namespace chem {

EstablishLink::EstablishLink(MoleculeEntity entity, Link::Connection connection)
    : m_link(std::move(entity), connection)
{
}

MoleculeEntity EstablishLink::transform(MoleculeEntity molecule) const
{
    StructuredMolecule result = structuredCopy(molecule);
    const MoleculeEntity bridge = m_link.entity();
    const Molecule added(bridge.formula(), bridge.averageMass(), bridge.monoMass());
    Molecule total(result.formula, result.averageMass, result.monoMass);
    total += added;

    result.links.append(Link(added, m_link.connection()));
    result.formula = total.formula();
    result.monoMass = total.monoMass();
    result.averageMass = total.averageMass();
    return recordStep(std::move(result), *this, molecule);
}

TransformationType EstablishLink::type() const
{
    return EstablishLinkTransformation;
}

} // namespace chem
