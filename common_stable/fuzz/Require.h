#pragma once

#include <cstdio>
#include <cstdlib>

/// Stops the fuzzer, which keeps the input, at the law that is broken, if one is.
inline void requireLaw(const char* broken)
{
    if (!broken)
        return;
    std::fprintf(stderr, "does not hold: %s\n", broken);
    std::abort();
}

/// The same for a law that holds or does not.
inline void require(bool holds, const char* law)
{
    requireLaw(holds ? nullptr : law);
}
