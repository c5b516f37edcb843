#pragma once

#include "IsotopePattern.h"

#include <numeric>
#include <vector>

namespace ions {

using Groups = std::vector<IsotopeGroup>;

/// The natural table, read once.
inline const AtomMasses& natural()
{
    static const AtomMasses masses;
    return masses;
}

inline double sumOf(const std::vector<double>& values)
{
    return std::accumulate(values.begin(), values.end(), 0.0);
}

} // namespace ions
