#pragma once

#include "AtomMasses.h"

namespace ions {

/// Charge carriers come from bottles, whose isotopes are natural. Read once.
inline const AtomMasses& naturalAtoms()
{
    static const AtomMasses atoms;
    return atoms;
}

} // namespace ions
