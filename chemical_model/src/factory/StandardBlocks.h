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

/// The sugar of a nucleotide that names none, which can be written as well.
StandardBlock standardRibose();

/// The linkage of a nucleotide that names none, likewise.
StandardBlock standardPhosphate();

} // namespace chem
