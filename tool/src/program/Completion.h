#pragma once

#include <CLI/CLI.hpp>
#include <string>

namespace tool {

/// A script that lets bash complete the commands and options that the parser of a program knows,
/// and names of files where an option or a text stands.
std::string bashCompletion(const CLI::App& app);

} // namespace tool
