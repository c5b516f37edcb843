#include "EstablishLink.h"

#include "steps/TransformationHistory.h"
#include "structure/StructuredCopy.h"
#include "structure/Totals.h"

#include <utility>

namespace chem {

EstablishLink::EstablishLink(MoleculeEntity entity, Link::Connection connection)
    : m_link(std::move(entity), connection)
{
}

MoleculeEntity EstablishLink::transform(MoleculeEntity molecule) const
{
    // Its places are not looked at: one that does not exist stays as it is.
    StructuredMolecule result = structuredCopy(molecule);
    const Molecule bridge = totalsOf(m_link.entity());
    result.links.append(Link(bridge, m_link.connection()));
    writeTotals(totalsOf(result) + bridge, &result);
    return recordStep(std::move(result), *this, molecule);
}

TransformationType EstablishLink::type() const
{
    return EstablishLinkTransformation;
}

} // namespace chem
