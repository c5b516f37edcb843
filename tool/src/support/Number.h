#pragma once

#include <QByteArray>
#include <QStringView>

#include <optional>

namespace tool {

/// The shortest text that reads back to the same double; with `digits`, so many behind the point.
QByteArray numberText(double value, std::optional<int> digits = {});

/// A finite number with a full stop, to the last character; nothing for any other text.
std::optional<double> readNumber(QByteArrayView text);

/// A whole number with an optional sign, to the last character; nothing for any other text or where
/// it does not fit.
std::optional<int> readWhole(QByteArrayView text);

} // namespace tool
