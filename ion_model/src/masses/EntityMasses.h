#pragma once

#include "AtomMasses.h"
#include "Composition.h"
#include "Parsed.h"
#include <zel_chemical_model/ChemicalFormula.h>

#include <cmath>

namespace ions {

/// The stored masses of a molecule, an entity or a modification of the first library.
template <typename Molecule>
Masses massesOf(const Molecule& molecule)
{
    return {molecule.monoMass(), molecule.averageMass()};
}

/// Whether both masses are numbers of daltons.
inline bool isFinite(const Masses& masses)
{
    return std::isfinite(masses.monoisotopic) && std::isfinite(masses.average);
}

/// Whether both masses agree within 10^-6 Da; masses that are not numbers agree with nothing.
bool isSameMass(const Masses& left, const Masses& right);

/// The composition of a formula if it weighs these masses; refused otherwise.
Parsed<Composition> weighedComposition(const chem::ChemicalFormula& formula, const Masses& masses,
                                       const AtomMasses& atoms);

} // namespace ions
