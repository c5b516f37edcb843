#include "masses/FactoryTables.h"

namespace ions {

FactoryTables::FactoryTables(const chem::ChemicalFactory& factory)
    : chem::ChemicalFactory(factory)
{
}

QMap<QString, chem::NamedMolecule> FactoryTables::entries(BuildingBlockType type) const
{
    return buildingBlocks.value(type);
}

} // namespace ions
