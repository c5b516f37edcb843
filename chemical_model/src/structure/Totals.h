#pragma once

#include "Molecule.h"
#include "MoleculeEntity.h"
#include "StructuredMolecule.h"

namespace chem {

/// Formula and masses of any entity, as it answers them.
inline Molecule totalsOf(const MoleculeEntity& entity)
{
    return Molecule(entity.formula(), entity.averageMass(), entity.monoMass());
}

/// Formula and masses that a structured molecule stores.
inline Molecule totalsOf(const StructuredMolecule& molecule)
{
    return Molecule(molecule.formula, molecule.averageMass, molecule.monoMass);
}

inline void writeTotals(const Molecule& totals, StructuredMolecule* molecule)
{
    molecule->formula = totals.formula();
    molecule->averageMass = totals.averageMass();
    molecule->monoMass = totals.monoMass();
}

} // namespace chem
