#pragma once

#include "Molecule.h"

namespace chem {

/// The small groups that stand at the ends of chains and come and go when these break.
struct ChainGroups
{
    Molecule hydrogen;     ///< H.
    Molecule hydrogenPair; ///< H2.
    Molecule oxygen;       ///< O.
    Molecule hydroxyl;     ///< OH.
    Molecule amine;        ///< NH2.
    Molecule ammonia;      ///< NH3.
    Molecule formyl;       ///< CHO.
};

} // namespace chem
