#pragma once

#include "ChemicalFormula.h"
#include "isotopes/ElementMasses.h"

#include <QList>
#include <QString>

namespace chem {

/// Both masses of a composition in daltons.
struct FormulaMasses
{
    double mono = 0.0;
    double average = 0.0;
    bool hasKnownElement = false; ///< Elements that the table lacks weigh nothing.
};

/// The masses of the gains of a formula minus those of its losses. Counts are cut toward zero.
/// Throws `std::invalid_argument` for an element whose isotopes are refused.
FormulaMasses massesOf(const ChemicalFormula& formula, const ElementMasses& atoms);

/// The masses of elements with the counts at the same index; a count that is negative or missing
/// adds nothing. Throws likewise.
FormulaMasses massesOf(const QList<QString>& elements, const QList<int>& counts,
                       const ElementMasses& atoms);

} // namespace chem
