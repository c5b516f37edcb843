#pragma once

#include "Molecule.h"

#include <QMap>
#include <QString>

namespace chem {

/// \file
/// Copies that count no reference on what they were copied from, for PerThread.

/// The same molecule with a formula of its own.
Molecule unshared(const Molecule& molecule);

/// The same molecule and texts with data of their own.
NamedMolecule unshared(const NamedMolecule& molecule);

/// The same entries with data of their own.
QMap<QString, NamedMolecule> unshared(QMap<QString, NamedMolecule> dictionary);

} // namespace chem
