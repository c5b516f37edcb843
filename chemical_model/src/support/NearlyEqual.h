#pragma once

#include <algorithm>
#include <cmath>

namespace chem {

/// Tells whether `a` and `b` agree to 12 digits: |a - b| is at most max(1.0, |a|, |b|) x 1e-12.
/// NaN agrees with nothing. This is the one tolerance of the library.
inline bool nearlyEqual(double a, double b)
{
    return std::abs(a - b) <= std::max({1.0, std::abs(a), std::abs(b)}) * 1e-12;
}

} // namespace chem
