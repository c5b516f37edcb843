#pragma once

#include "FragmentType.h"

#include <QtGlobal>

namespace chem {

/// How many ions break off at a residue, at most.
constexpr qsizetype sitesPerResidue = 10;

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

} // namespace chem
