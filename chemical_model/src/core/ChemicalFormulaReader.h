#pragma once

#include "ChemicalFormula.h"

namespace chem {

/// Reads a formula text, as ChemicalFactory::parseChemicalFormula() tells it.
ChemicalFormula readChemicalFormula(const QString& text);

} // namespace chem
