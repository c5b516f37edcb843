#pragma once

#include "Molecule.h"

#include <QMap>
#include <QString>

namespace chem {

/// \file
/// Copies with formulas and texts of their own, so that to use them counts no reference on those
/// that they were copied from: for PerThread.

/// The same molecule with a formula of its own.
Molecule unshared(const Molecule& molecule);

/// The same molecule and texts with data of their own.
NamedMolecule unshared(const NamedMolecule& molecule);

/// The same entries with data of their own.
QMap<QString, NamedMolecule> unshared(QMap<QString, NamedMolecule> dictionary);

} // namespace chem
