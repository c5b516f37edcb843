#pragma once

#include <cstdio>
#include <cstdlib>

/// Stops the fuzzer, which keeps the input, if a law does not hold.
inline void require(bool holds, const char* law)
{
    if (holds)
        return;
    std::fprintf(stderr, "does not hold: %s\n", law);
    std::abort();
}
