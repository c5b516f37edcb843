#pragma once

#include <CLI/CLI.hpp>
#include <limits>
#include <string>
#include <vector>

namespace tool {

/// Lets an option take a whole number from `least` to `most`.
CLI::Validator wholeNumber(int least, int most = std::numeric_limits<int>::max());

/// Throws UsageError where `--min` is above `--max`, between which no length lies.
void checkLengths(int min, int max);

/// Lets an option take one of these words, which completion offers.
CLI::Validator oneOf(const std::vector<std::string>& words);

/// The words that an option takes as oneOf() has it; none where it takes others as well.
std::vector<std::string> wordsTaken(const CLI::Option& option);

} // namespace tool
