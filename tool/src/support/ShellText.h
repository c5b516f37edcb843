#pragma once

#include <QString>
#include <QStringList>

#include <string>
#include <vector>

namespace tool {

/// The arguments as the parser is to see them: it takes one in brackets, such as
/// `[Acetyl]-AK-[Amidated]`, for a list and splits it. A mark in front hides the bracket from it.
std::vector<std::string> forParser(int count, char** arguments);

/// What an argument says, without the mark.
QString fromShell(const std::string& text);

/// The same for several.
QStringList fromShell(const std::vector<std::string>& texts);

} // namespace tool
