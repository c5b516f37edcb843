#pragma once

#include "ChemicalFormula.h"
#include "isotopes/IsotopeTable.h"

#include <QList>
#include <QPointF>

namespace chem {

/// The number of charges, whatever their sign. The lowest `int` counts as the highest.
int chargeNumber(int charge);

/// Writes the isotope envelope of a valid formula at a number of charges to `envelope`, as
/// ChemicalFactory::generateIsotopeEnvelope() tells it; an empty list stays empty where nothing is
/// known or nothing reaches the threshold. `electronMass` is taken off every m/z.
void writeIsotopeEnvelope(const ChemicalFormula& formula, const IsotopeTable& isotopes, int charges,
                          double electronMass, QList<QPointF>* envelope);

} // namespace chem
