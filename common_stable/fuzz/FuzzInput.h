#pragma once

#include "Require.h"

#include <QString>
#include <QStringList>

#include <cstddef>
#include <cstdint>

/// Maps each byte to a unit of a notation: coverage cannot see into the expression engine, so the
/// input speaks the notation from the start. Bytes beyond the units give any character.
inline QString textOf(const std::uint8_t* data, std::size_t size, const QStringList& units)
{
    QString text;
    for (std::size_t i = 0; i < size; ++i) {
        const std::uint8_t byte = data[i];
        if (byte < units.size())
            text += units[byte];
        else if (byte < 250)
            text += QChar(static_cast<char16_t>(byte));
        else
            text += QChar(static_cast<char16_t>(0xd7fe + byte - 250)); // around the surrogates
    }
    return text;
}
