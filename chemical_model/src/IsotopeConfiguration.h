#pragma once

#include <zel_chemical_model/ChemicalModelExport.h>

#include <QList>

namespace chem {

/// \addtogroup factory
/// @{

/// Scales `values` by the reciprocal of their sum, where the running sum is cut to a whole number
/// at each step: percentages become fractions (99 and 1 become 0.99 and 0.01), while fractions,
/// whose whole sum stays 0, are left as they are. Percentages have to be whole: 98.7 and 1.3 are
/// divided by 99 and add up to 1.01.
///
/// A sum below 2.220446049250313e-16, and so also an empty list, changes nothing and logs a debug
/// message on the category "zel.generic". A running sum beyond 32 bits becomes -2147483648 and goes
/// on from there. May be called from any thread on a list of its own.
///
/// \code
/// QList<double> abundances = {99.0, 1.0};
/// normalize(abundances); // 0.99 and 0.01
/// \endcode
ZEL_CHEMICAL_MODEL_EXPORT void normalize(QList<double>& values);

/// @}

} // namespace chem
