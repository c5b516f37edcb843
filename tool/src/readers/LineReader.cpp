#include "readers/LineReader.h"

#include <algorithm>
#include <utility>

namespace tool {

namespace {

constexpr qsizetype chunkSize = 1 << 16;

} // namespace

LineReader::LineReader(QIODevice* device, qsizetype limit)
    : m_device(device)
    , m_limit(limit)
{
}

/// Gets bytes, if there are any left.
bool LineReader::fill()
{
    while (m_position == m_chunk.size()) {
        m_chunk = m_device->read(chunkSize);
        m_position = 0;
        if (m_chunk.isEmpty())
            return false;
        if (m_isBehindReturn && m_chunk.front() == '\n')
            m_position = 1;
        m_isBehindReturn = false;
    }
    return true;
}

/// Moves bytes of the chunk to the line, as many as fit.
void LineReader::take(qsizetype count)
{
    const qsizetype fitting = std::min(count, m_limit - m_line.size());
    m_line.append(m_chunk.constData() + m_position, fitting);
    m_isTooLong = m_isTooLong || fitting < count;
    m_position += count;
}

bool LineReader::next()
{
    if (std::exchange(m_isBack, false))
        return true;
    m_line.clear();
    m_isTooLong = false;
    if (!fill())
        return false;
    ++m_number;
    do {
        const char* const begin = m_chunk.constData() + m_position;
        const char* const end = m_chunk.constData() + m_chunk.size();
        const char* const found =
            std::find_if(begin, end, [](char byte) { return byte == '\n' || byte == '\r'; });
        take(found - begin);
        if (found == end)
            continue;
        ++m_position;
        if (*found == '\r' && m_position == m_chunk.size())
            m_isBehindReturn = true;
        else if (*found == '\r' && m_chunk[m_position] == '\n')
            ++m_position;
        break;
    } while (fill());
    if (m_number == 1 && m_line.startsWith("\xef\xbb\xbf"))
        m_line.remove(0, 3);
    return true;
}

} // namespace tool
