#include "readers/PeakLine.h"

#include "support/Number.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace tool {

namespace {

bool isBlank(char byte)
{
    return byte == ' ' || byte == '\t';
}

bool isDigit(char byte)
{
    return byte >= '0' && byte <= '9';
}

bool isIntensity(double number)
{
    return number >= 0.0;
}

/// Tells whether blanks or tabs stand between the columns of a line.
bool areBlanksBetween(QByteArrayView line)
{
    const QByteArrayView columns = line.trimmed();
    return std::any_of(columns.begin(), columns.end(), isBlank);
}

/// The words between bytes that part them, none of which is empty.
template <typename Parts>
std::vector<Word> split(QByteArrayView line, Parts parts)
{
    std::vector<Word> words;
    const auto end = line.end();
    for (auto begin = std::find_if_not(line.begin(), end, parts); begin != end;) {
        const auto behind = std::find_if(begin, end, parts);
        words.push_back({QByteArrayView(begin, behind), begin - line.begin()});
        begin = std::find_if_not(behind, end, parts);
    }
    return words;
}

/// The cells of CSV, empty ones too.
std::vector<Word> cellsOf(QByteArrayView line)
{
    std::vector<Word> cells;
    for (qsizetype begin = 0; begin <= line.size();) {
        const qsizetype comma = line.indexOf(',', begin);
        const qsizetype end = comma < 0 ? line.size() : comma;
        cells.push_back({line.sliced(begin, end - begin).trimmed(), begin});
        begin = end + 1;
    }
    return cells;
}

/// Where a comma goes on with a digit, as a decimal one does; -1 where none does.
qsizetype decimalComma(QByteArrayView text)
{
    for (qsizetype comma = text.indexOf(','); comma >= 0; comma = text.indexOf(',', comma + 1)) {
        if (comma + 1 < text.size() && isDigit(text[comma + 1]))
            return comma;
    }
    return -1;
}

ions::Error refusedComma(qsizetype position)
{
    return {u"expected a full stop in a number, not a comma"_s, position};
}

/// Tells whether the commas of CSV may be decimal ones: `175,119,21` is two numbers or three, and
/// no full stop tells which.
bool isAmbiguous(QByteArrayView line)
{
    return !areBlanksBetween(line) && line.count(',') > 1 && !line.contains('.') &&
           decimalComma(line) >= 0;
}

} // namespace

std::vector<Word> wordsOf(QByteArrayView line)
{
    return split(line, [](char byte) { return isBlank(byte) || byte == ','; });
}

std::vector<Word> columnsBetweenBlanks(QByteArrayView line)
{
    std::vector<Word> columns = split(line, isBlank);
    for (Word& column : columns) {
        if (column.text.endsWith(','))
            column.text.chop(1);
    }
    std::erase_if(columns, [](const Word& column) { return column.text.isEmpty(); });
    return columns;
}

ions::Parsed<double> readColumn(const Word& column, const QString& expected,
                                bool (*accepts)(double))
{
    const auto value = readNumber(column.text);
    if (value && accepts(*value))
        return *value;
    const qsizetype comma = decimalComma(column.text);
    return comma < 0 ? ions::Error{expected, column.position}
                     : refusedComma(column.position + comma);
}

std::optional<ions::Error> appendPeak(QByteArrayView line, Peaks* peaks)
{
    if (isAmbiguous(line))
        return refusedComma(decimalComma(line));
    const std::vector<Word> columns =
        areBlanksBetween(line) ? columnsBetweenBlanks(line) : cellsOf(line);
    if (columns.size() < 2)
        return ions::Error{u"expected m/z and intensity"_s, line.size()};
    const auto mz = readColumn(columns[0], u"expected an m/z, a number above 0"_s, isMz);
    if (!mz)
        return mz.error();
    const auto intensity =
        readColumn(columns[1], u"expected an intensity, a number not below 0"_s, isIntensity);
    if (!intensity)
        return intensity.error();
    peaks->mz.push_back(*mz);
    peaks->intensities.push_back(*intensity);
    return {};
}

} // namespace tool
