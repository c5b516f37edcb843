#pragma once

#include "Parsed.h"
#include "ProForma.h"

namespace ions {

/// One ion alone, with what a molecule of the first library has a place for: what it has none for
/// is refused or left out. Ranges of modifications stay.
Parsed<Peptidoform> withPlaces(const Peptidoform& peptidoform, qsizetype ion, Placeless placeless);

} // namespace ions
