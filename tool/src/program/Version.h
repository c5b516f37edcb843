#pragma once

#include <string>

namespace tool {

/// The version of the program and, where it was built from a clone, the commit.
std::string versionText();

} // namespace tool
