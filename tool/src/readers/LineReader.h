#pragma once

#include <QByteArray>
#include <QIODevice>

namespace tool {

/// Reads a file line by line, whatever ends its lines: `\n`, `\r\n`, `\r`, or several of these.
/// A mark of the order of bytes at its start is taken off.
class LineReader
{
public:
    /// The longest line that is read; the rest of a longer one is dropped, which it says.
    static constexpr qsizetype mostBytes = qsizetype(1) << 28;

    /// Reads from a device that is open and outlives this object.
    explicit LineReader(QIODevice* device, qsizetype limit = mostBytes);

    /// Reads the next line without its end. Gives false behind the last one. A line end at the end
    /// of the file starts no further line.
    bool next();

    /// Makes next() give the line that was read last once more.
    void stepBack() { m_isBack = true; }

    /// The line that was read last.
    const QByteArray& line() const { return m_line; }
    /// Its number, from 1.
    qint64 number() const { return m_number; }
    /// Tells whether it was longer than the limit.
    bool isTooLong() const { return m_isTooLong; }

private:
    bool fill();
    void take(qsizetype count);

    QIODevice* m_device;
    qsizetype m_limit;
    QByteArray m_chunk;
    qsizetype m_position = 0;
    QByteArray m_line;
    qint64 m_number = 0;
    bool m_isTooLong = false;
    bool m_isBack = false;
    bool m_isBehindReturn = false; ///< A line feed that comes next ends no line.
};

} // namespace tool
