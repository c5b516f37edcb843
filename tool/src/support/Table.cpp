#include "support/Table.h"

#include "support/Number.h"

#include <cerrno>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>

namespace tool {

namespace {

constexpr qsizetype mostHeld = 1 << 16;

/// Ends the program: nobody reads any more, or the disk is full.
[[noreturn]] void giveUp()
{
    const int reason = errno;
    if (reason == EPIPE)
        std::_Exit(0);
    std::fprintf(stderr, "zel: standard output cannot be written: %s\n", std::strerror(reason));
    std::_Exit(1);
}

} // namespace

QByteArray escaped(QByteArrayView text)
{
    QByteArray result;
    result.reserve(text.size());
    for (const char character : text) {
        switch (character) {
        case '\t':
            result += "\\t";
            break;
        case '\n':
            result += "\\n";
            break;
        case '\r':
            result += "\\r";
            break;
        case '\\':
            result += "\\\\";
            break;
        default:
            result += character;
        }
    }
    return result;
}

Table::Table(const QStringList& columns, std::optional<int> digits)
    : m_columns(columns.size())
    , m_digits(digits)
    , m_held(columns.join(u'\t').toUtf8() + '\n')
{
}

Table::~Table()
{
    write();
}

void Table::add(std::initializer_list<Cell> cells)
{
    Q_ASSERT(qsizetype(cells.size()) == m_columns);
    for (const Cell& cell : cells) {
        append(cell);
        m_held += '\t';
    }
    m_held.back() = '\n';
    if (m_held.size() > mostHeld)
        write();
}

void Table::append(const Cell& cell)
{
    if (!cell.m_isNumber)
        m_held += escaped(cell.m_text);
    else if (!std::isnan(cell.m_number))
        m_held += numberText(cell.m_number, m_digits);
}

void Table::write()
{
    const auto size = std::size_t(m_held.size());
    if (std::fwrite(m_held.constData(), 1, size, stdout) != size || std::fflush(stdout) != 0)
        giveUp();
    m_held.clear();
}

} // namespace tool
