#include "isotopes/IsotopeText.h"

#include "support/Ascii.h"

#include <QStringList>

#include <algorithm>

namespace chem {

// Read without regular expressions: when an engine gets no memory, it reports no match, and the
// text would be read as another one.

namespace {

/// What stands between the runs of white space, before the first and behind the last included. Text
/// with a lone surrogate is one piece.
QStringList splitAtBlanks(const QString& text)
{
    QStringList pieces;
    auto start = text.cbegin();
    auto end = text.isValidUtf16() ? std::find_if(start, text.cend(), isAsciiBlank) : text.cend();
    while (end != text.cend()) {
        pieces.append(QString(start, end - start));
        start = std::find_if_not(end, text.cend(), isAsciiBlank);
        end = std::find_if(start, text.cend(), isAsciiBlank);
    }
    pieces.append(QString(start, end - start));
    return pieces;
}

/// Reads one entry; nothing if it cannot be told which element it names, or if it has no abundance.
std::optional<IsotopeEntry> readEntry(const QString& text)
{
    const QStringList pieces = text.split(u':');
    const QString& isotope = pieces.first();
    const qsizetype firstDigit =
        std::find_if(isotope.cbegin(), isotope.cend(), isAsciiDigit) - isotope.cbegin();
    if (!isotope.isValidUtf16() || firstDigit < 1 || firstDigit == isotope.size() ||
        pieces.size() < 2)
        return std::nullopt;
    return IsotopeEntry{isotope.first(firstDigit), isotope.sliced(firstDigit).toInt(),
                        pieces[1].toDouble()};
}

} // namespace

std::optional<QList<IsotopeEntry>> readIsotopeText(const QString& text)
{
    QList<IsotopeEntry> entries;
    const QStringList pieces = splitAtBlanks(text);
    for (const QString& piece : pieces) {
        const std::optional<IsotopeEntry> entry = readEntry(piece);
        if (!entry)
            return std::nullopt;
        entries.append(*entry);
    }
    return entries;
}

} // namespace chem
