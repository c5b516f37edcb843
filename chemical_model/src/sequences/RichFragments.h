#pragma once

#include "LinearComplex.h"

#include <QList>
#include <QSharedPointer>

namespace chem {

/// Appends every fragment ion of `complex` with its molecule and its links into the complex.
void appendFragments(const MoleculeComplex& complex, QList<QSharedPointer<Fragment>>* fragments);

} // namespace chem
