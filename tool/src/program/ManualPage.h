#pragma once

#include <CLI/CLI.hpp>
#include <string>

namespace tool {

/// The manual page of a program in the language of man(7), from what its parser knows: the
/// commands, their options and examples.
std::string manualPage(const CLI::App& app, const std::string& version);

} // namespace tool
