#pragma once

#include "LinearComplex.h"

#include <QList>
#include <QSharedPointer>
#include <QString>

namespace chem {

/// Appends every fragment ion of `complex` with its molecule and its links into the complex.
void appendFragments(const MoleculeComplex& complex, QList<QSharedPointer<Fragment>>* fragments);

/// The label of an ion type, such as "b" or "z."; "unknown" for types without one.
QString fragmentLabel(FragmentType type);

} // namespace chem
