#pragma once

#include <limits>

namespace chem {

/// The integer part of `value`, cut toward zero to 32 bits. NaN and values that 32 bits cannot hold
/// give -2147483648, as the processor's own instruction does; a plain cast would be undefined
/// there.
inline int truncateToInt(double value)
{
    constexpr double belowRange = -2147483649.0;
    constexpr double aboveRange = 2147483648.0;
    const bool fits = value > belowRange && value < aboveRange;
    return fits ? static_cast<int>(value) : std::numeric_limits<int>::min();
}

} // namespace chem
