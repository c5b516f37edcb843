#include "readers/PeakLine.h"

#include "support/Number.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace tool {

namespace {

bool parts(char byte)
{
    return byte == ' ' || byte == '\t' || byte == ',';
}

} // namespace

std::vector<Word> wordsOf(QByteArrayView line)
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

std::optional<ions::Error> appendPeak(QByteArrayView line, Peaks* peaks)
{
    const std::vector<Word> words = wordsOf(line);
    if (words.size() < 2)
        return ions::Error{u"expected m/z and intensity"_s, line.size()};
    const auto mz = readNumber(words[0].text);
    if (!mz || *mz <= 0.0)
        return ions::Error{u"expected an m/z, a number above 0"_s, words[0].position};
    const auto intensity = readNumber(words[1].text);
    if (!intensity || *intensity < 0.0)
        return ions::Error{u"expected an intensity, a number not below 0"_s, words[1].position};
    peaks->mz.push_back(*mz);
    peaks->intensities.push_back(*intensity);
    return {};
}

} // namespace tool
