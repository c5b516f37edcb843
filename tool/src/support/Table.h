#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <concepts>
#include <initializer_list>
#include <optional>

namespace tool {

/// One cell of a table: text, a number, or nothing.
class Cell
{
public:
    /// Nothing.
    Cell(std::nullopt_t) {}
    /// Text, as it is.
    Cell(const QString& text)
        : m_text(text.toUtf8())
    {
    }
    /// A number; nothing if it is NaN.
    Cell(double number)
        : m_number(number)
        , m_isNumber(true)
    {
    }
    /// A whole number.
    template <std::integral Whole>
    Cell(Whole whole)
        : m_text(QByteArray::number(whole))
    {
    }

private:
    friend class Table;

    QByteArray m_text;
    double m_number = 0.0;
    bool m_isNumber = false;
};

/// A text as it stands in a cell: tab, line end and backslash as `\t`, `\n` and `\\`.
QByteArray escaped(QByteArrayView text);

/// How a table is written.
struct TableForm
{
    std::optional<int> digits; ///< Behind the point of numbers; the shortest text without them.
    bool hasNames = true;      ///< Whether the first line names the columns.
};

/// Writes rows to standard output: columns separated by tabs, their names in the first line.
///
/// A reader that has seen enough closes its end; then the program ends without a word.
class Table
{
public:
    /// Writes the names of the columns.
    Table(const QStringList& columns, const TableForm& form);
    /// Writes what is still held.
    ~Table();

    Table(const Table&) = delete;
    Table& operator=(const Table&) = delete;

    /// Writes one row, which has a cell for each column.
    void add(std::initializer_list<Cell> cells);

private:
    void append(const Cell& cell);
    void write();

    qsizetype m_columns;
    std::optional<int> m_digits;
    QByteArray m_held;
};

} // namespace tool
