#pragma once

#include "SharedObjects.h"

#include <functional>
#include <vector>

/// \file
/// A call for each const function of the library and each function that takes something const.

namespace ions {

/// A function by the header that declares it, and a call.
struct ConstCall
{
    const char* function;
    std::function<void(const SharedObjects&)> call;
};

/// All of them, those of one header together.
const std::vector<ConstCall>& constCalls();

} // namespace ions
