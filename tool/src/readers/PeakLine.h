#pragma once

#include "readers/Spectrum.h"
#include <Parsed.h>

#include <QByteArrayView>

#include <optional>
#include <vector>

namespace tool {

/// A word of a line and where it starts.
struct Word
{
    QByteArrayView text;
    qsizetype position = 0;
};

/// The words of a line, separated by blanks, tabs or commas.
std::vector<Word> wordsOf(QByteArrayView line);

/// The words of a line, separated by blanks or tabs, in front of which a comma may stand.
std::vector<Word> columnsBetweenBlanks(QByteArrayView line);

/// A number in a column that `accepts` takes. Anything else is refused as `expected`; a decimal
/// comma, as in `785,84`, is pointed at.
ions::Parsed<double> readColumn(const Word& column, const QString& expected,
                                bool (*accepts)(double));

/// Tells whether a number can be an m/z.
inline bool isMz(double number)
{
    return number > 0.0;
}

/// Appends a peak, m/z and intensity, perhaps with further columns, between which blanks, tabs or,
/// as in CSV, commas stand. Gives the refusal, if there is one: an m/z that is not above 0, an
/// intensity below it, or anything that is no finite number. Nor is CSV of more than two columns
/// taken where its commas could be decimal ones.
std::optional<ions::Error> appendPeak(QByteArrayView line, Peaks* peaks);

} // namespace tool
