#include "support/Table.h"

#include "support/Number.h"
#include "support/Output.h"

#include <cmath>

namespace tool {

namespace {

constexpr qsizetype mostHeld = 1 << 16;

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

Table::Table(const QStringList& columns, const TableForm& form)
    : m_columns(columns.size())
    , m_digits(form.digits)
    , m_held(form.hasNames ? columns.join(u'\t').toUtf8() + '\n' : QByteArray())
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
    writeOut(m_held);
    m_held.clear();
}

} // namespace tool
