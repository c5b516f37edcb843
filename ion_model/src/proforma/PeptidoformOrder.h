#pragma once

#include "ProForma.h"

namespace ions {

/// Brings the rules that hold for all ions into the order of canonical text: isotopes by element
/// and mass number, fixed modifications by their text.
void sortGlobals(Peptidoform* peptidoform);

} // namespace ions
