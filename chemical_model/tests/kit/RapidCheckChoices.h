#pragma once

#include <rapidcheck.h>

/// The choices of a property test, which RapidCheck makes and shrinks.
struct RapidCheckChoices
{
    int below(int end) { return *rc::gen::inRange(0, end); }
};
