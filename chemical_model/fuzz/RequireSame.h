#pragma once

#include "Differences.h"
#include "Require.h"

/// Stops the fuzzer if two values differ, and names the fields.
template <typename T>
void requireSame(const T& one, const T& other, const char* law)
{
    if (!(one == other))
        require(false, (law + ('\n' + fields::differences(one, other))).c_str());
}
