#pragma once

#include "Require.h"

#include <cstddef>
#include <cstdint>
#include <limits>

/// Hands out the bytes of an input as choices; zeros once they have run out.
class ByteReader
{
public:
    ByteReader(const std::uint8_t* data, std::size_t size)
        : m_data(data)
        , m_end(data + size)
    {
    }

    bool atEnd() const { return m_data == m_end; }

    /// A number from 0 to `end` - 1.
    int below(int end) { return atEnd() ? 0 : *m_data++ % end; }

    /// Mostly a small number around `count`; now and then an extreme one.
    int aroundRange(int count)
    {
        const int value = below(count + 5);
        if (value <= count + 1)
            return value - 1;
        return value == count + 2   ? std::numeric_limits<int>::min()
               : value == count + 3 ? std::numeric_limits<int>::max()
                                    : -2;
    }

private:
    const std::uint8_t* m_data;
    const std::uint8_t* m_end;
};
