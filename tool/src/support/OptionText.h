#pragma once

#include "support/Complaints.h"
#include "support/ShellText.h"

#include <QString>

#include <string>

namespace tool {

/// Reads the text of an option by a reader of the libraries; throws UsageError with the place and
/// the reason where it refuses.
template <typename Reader>
auto readOption(const QString& option, const QString& text, Reader read)
{
    const auto value = read(text);
    if (!value) {
        throw UsageError{option + QStringLiteral(":1:") + QString::number(value.error().position) +
                         QStringLiteral(": ") + value.error().message};
    }
    return *value;
}

/// The same for text as the shell handed it over.
template <typename Reader>
auto readOption(const QString& option, const std::string& text, Reader read)
{
    return readOption(option, fromShell(text), read);
}

} // namespace tool
