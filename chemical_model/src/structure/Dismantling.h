#pragma once

#include "StructuredMolecule.h"

namespace chem {

/// Destroys the value without recursion, so that a molecule that is nested a hundred thousand deep
/// does not exhaust the stack: whatever is released while another value is being dismantled on the
/// same thread waits until that one is gone.
void dismantle(StructuredMolecule&& molecule) noexcept;
void dismantle(Modification&& modification) noexcept;

} // namespace chem
