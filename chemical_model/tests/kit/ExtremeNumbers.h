#pragma once

#include <limits>

/// \file
/// The ends of the range of numbers that count chains and residues.

constexpr int lowest = std::numeric_limits<int>::min();
constexpr int highest = std::numeric_limits<int>::max();
