#include "readers/PeakFile.h"

#include "readers/InputFile.h"
#include "readers/Mgf.h"
#include "readers/PeakLine.h"

#include <optional>

using namespace Qt::StringLiterals;

namespace tool {

namespace {

/// Steps to the next line that is neither empty nor a remark.
bool nextLine(LineReader* lines)
{
    while (lines->next()) {
        const QByteArray line = lines->line().trimmed();
        if (!line.isEmpty() && !line.startsWith('#'))
            return true;
    }
    return false;
}

bool isMgf(const QByteArray& line)
{
    return line.contains('=') || line.trimmed().compare("BEGIN IONS", Qt::CaseInsensitive) == 0;
}

/// Tells whether a line names columns: its first word starts with a letter, perhaps in quotes, and
/// is none of those that other programs write for what is no number.
bool isHeader(const QByteArray& line)
{
    const std::vector<Word> words = wordsOf(line);
    if (words.empty())
        return false;
    QString word = QString::fromUtf8(words.front().text).toLower();
    word.remove(u'"');
    const bool isNoNumber = word == u"nan" || word == u"inf" || word == u"infinity";
    return !word.isEmpty() && word.front().isLetter() && !isNoNumber;
}

/// Reads two columns, the first line of which was looked at already.
std::optional<Spectrum> readColumns(const QString& source, LineReader* lines,
                                    Complaints* complaints)
{
    Spectrum spectrum{u"index=1"_s, 0.0, {}, {}, {source, lines->number()}};
    if (!isHeader(lines->line()))
        lines->stepBack();
    while (nextLine(lines)) {
        if (const auto error = appendPeak(lines->line(), &spectrum.peaks)) {
            complaints->report({source, lines->number()}, *error);
            return std::nullopt;
        }
    }
    spectrum.peaks.sort();
    return spectrum;
}

} // namespace

void readPeaks(const QString& source, LineReader* lines, Complaints* complaints,
               const std::function<void(Spectrum&&)>& take)
{
    if (!nextLine(lines)) {
        complaints->report({source}, {u"expected peaks"_s, 0});
    } else if (isMgf(lines->line())) {
        lines->stepBack();
        readMgf(source, lines, complaints, take);
    } else if (auto spectrum = readColumns(source, lines, complaints)) {
        take(*std::move(spectrum));
    }
}

std::vector<Spectrum> readPeakFile(const QString& name, Complaints* complaints)
{
    return readItems<Spectrum>(name, complaints, readPeaks);
}

} // namespace tool
