#pragma once

#include "FragmentType.h"

#include <QString>

namespace chem {

/// How many sites a residue has, at most. At each of them one ion breaks off.
constexpr qsizetype sitesPerResidue = 10;

// What an ion of each type gains and loses stands in PeptideSites and OligoSites.

// The stable numbers of the types put those of the left end first, then those of the right end.

/// Whether an ion of this type holds the left end of its chain.
constexpr bool isLeftIon(FragmentType type)
{
    return type >= FragmentType::A && type <= FragmentType::AB;
}

/// Whether an ion of this type holds the right end of its chain.
constexpr bool isRightIon(FragmentType type)
{
    return type >= FragmentType::W && type <= FragmentType::Zdot;
}

/// The label of an ion type, such as "b" or "z."; "unknown" for types without one.
QString fragmentLabel(FragmentType type);

} // namespace chem
