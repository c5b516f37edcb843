#pragma once

#include "StructuredMolecule.h"

namespace chem {

/// Lets the value die without recursion, so that a molecule that is nested a hundred thousand deep
/// does not exhaust the stack: whatever dies while another value is being dismantled on the same
/// thread waits until that one is gone.
void dismantle(StructuredMolecule&& molecule) noexcept;
void dismantle(Modification&& modification) noexcept;

} // namespace chem
