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

/// Appends a peak, m/z and intensity, perhaps with further words. Gives the refusal, if there is
/// one: an m/z that is not above 0, an intensity below it, or anything that is no finite number.
std::optional<ions::Error> appendPeak(QByteArrayView line, Peaks* peaks);

} // namespace tool
