#pragma once

#include "ChemicalFormula.h"
#include "isotopes/ElementMasses.h"

namespace chem {

/// The average mass for each dalton of monoisotopic mass; 0.0 for a formula whose monoisotopic
/// masses sum to zero or less. Counts are taken as they are, fractions and losses included. Throws
/// `std::invalid_argument` for an element whose isotopes are refused.
double averageToMonoMassRatio(const ChemicalFormula& formula, const ElementMasses& atoms);

} // namespace chem
