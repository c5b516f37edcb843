#include "support/Number.h"

#include <array>
#include <charconv>
#include <cmath>

namespace tool {

namespace {

/// Reads all of a text as std::from_chars does, which knows no locale; a plus may stand in front.
template <typename Value>
std::optional<Value> readAll(QByteArrayView text)
{
    if (text.startsWith('+') && !text.startsWith("+-"))
        text = text.sliced(1);
    Value value{};
    const auto read = std::from_chars(text.begin(), text.end(), value);
    if (read.ec != std::errc() || read.ptr != text.end())
        return std::nullopt;
    return value;
}

} // namespace

QByteArray numberText(double value, std::optional<int> digits)
{
    // The largest double has 309 digits in front of the point, and up to 100 behind are asked for.
    std::array<char, 512> room;
    char* const end = room.data() + room.size();
    const auto written =
        digits ? std::to_chars(room.data(), end, value, std::chars_format::fixed, *digits)
               : std::to_chars(room.data(), end, value);
    return QByteArray(room.data(), written.ptr - room.data());
}

std::optional<double> readNumber(QByteArrayView text)
{
    const std::optional<double> value = readAll<double>(text);
    return value && std::isfinite(*value) ? value : std::nullopt;
}

std::optional<int> readWhole(QByteArrayView text)
{
    return readAll<int>(text);
}

} // namespace tool
