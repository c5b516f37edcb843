#pragma once

#include "ResidueTable.h"

namespace ions {

/// The residues of the default factory, read once.
inline const ResidueTable& residues()
{
    static const ResidueTable table;
    return table;
}

} // namespace ions
