#pragma once

#include "ChemicalFactory.h"

#include <QString>

#include <vector>

namespace chem {

/// One building block of a new factory.
struct StandardBlock
{
    QString key;
    QString code;
    QString name;
    QString formula;
};

/// The building blocks of one kind that a new factory has; none for kinds that nothing here reads.
// No QList: without memory, Qt 6.4 makes it from braces by writing to the null pointer.
std::vector<StandardBlock> standardBlocks(ChemicalFactory::BuildingBlockType type);

} // namespace chem
