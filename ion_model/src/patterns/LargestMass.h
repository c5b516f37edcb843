#pragma once

namespace ions {

/// Beyond any molecule, in daltons: the width of a pattern, and the square of it in time, has to
/// end somewhere.
constexpr double largestMass = 1e8;

} // namespace ions
