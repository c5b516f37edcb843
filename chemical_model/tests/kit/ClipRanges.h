#pragma once

#include "Differences.h"
#include "SmallMolecules.h"

#include <algorithm>
#include <functional>
#include <ostream>

/// \file
/// The ranges of clips, found another way than the library finds them: trims by asking whether a
/// residue stays, and cuts by matchers in the place of the expression engine.

namespace clipRanges {

using smallMolecules::Position;

/// A piece of a chain from `start` to before `end`, both counted from the start terminal.
struct Range
{
    int chain;
    int start;
    int end;

    bool operator==(const Range&) const = default;
};

inline std::string textOf(const Range& range)
{
    return std::to_string(range.chain) + ":(" + std::to_string(range.start) + ", " +
           std::to_string(range.end) + ')';
}

inline void PrintTo(const Range& range, std::ostream* stream)
{
    *stream << textOf(range);
}

inline void addField(fields::Fields* fields, const std::string& path, const Range& range)
{
    fields->append(path, textOf(range));
}

/// The ranges of clips, each of which is one chain.
inline QList<Range> rangesOf(const QList<chem::MoleculeEntity>& clips)
{
    QList<Range> ranges;
    for (const chem::MoleculeEntity& clip : clips) {
        const QList<chem::Chain> chains = clip.chains();
        const chem::ParentChainLocus& locus = chains.first().parentLocus();
        ranges.append({locus.chain, locus.start, locus.end});
    }
    return ranges;
}

inline QList<Range> rangesOf(const chem::MoleculeEntity& molecule, const chem::ClipOptions& options)
{
    return rangesOf(chem::generateClips(molecule, nullptr, options));
}

struct Depths
{
    int startSingle;
    int endSingle;
    int startDouble;
    int endDouble;

    chem::ClipOptions options() const
    {
        return chem::ClipOptions::createClipByDepth(startSingle, endSingle, startDouble, endDouble);
    }
};

/// The trims that leave a residue, of chains of so many residues between their terminals: the whole
/// and single ends for each chain, then both ends for each.
inline QList<Range> trims(const QList<int>& residueCounts, const Depths& depths)
{
    QList<Range> ranges;
    for (int chain = 0; chain < residueCounts.size(); ++chain) {
        const int residues = residueCounts[chain];
        ranges.append({chain, 1, residues + 1});
        for (int off = 1; off < residues && off <= depths.startSingle; ++off)
            ranges.append({chain, 1 + off, residues + 1});
        for (int off = 1; off < residues && off <= depths.endSingle; ++off)
            ranges.append({chain, 1, residues + 1 - off});
    }
    for (int chain = 0; chain < residueCounts.size(); ++chain) {
        const int residues = residueCounts[chain];
        for (int left = 1; left < residues && left <= depths.startDouble; ++left) {
            for (int right = 1; left + right < residues && right <= depths.endDouble; ++right)
                ranges.append({chain, 1 + left, residues + 1 - right});
        }
    }
    return ranges;
}

/// The length of a match at a place of the text, or -1.
using Matcher = std::function<int(const QString&, qsizetype)>;

/// Matches this text alone.
inline Matcher plainText(const QString& word)
{
    return [word](const QString& text, qsizetype at) {
        return text.mid(at).startsWith(word) ? static_cast<int>(word.size()) : -1;
    };
}

/// Starts and ends of all matches from left to right, none over another.
inline QList<Position> matches(const Matcher& match, const QString& text)
{
    QList<Position> found;
    for (qsizetype at = 0; at <= text.size();) {
        const int length = match(text, at);
        if (length >= 0)
            found.append({static_cast<int>(at), static_cast<int>(at) + length});
        at += std::max(length, 1);
    }
    return found;
}

/// A residue rule by a matcher.
struct Rule
{
    Matcher match;
    bool cutsBehind; ///< A match, and `after` must stand there; else before it.
    QString after;
};

/// Both sides of each cut of a rule in a chain of these letters.
inline QList<Range> cuts(const Rule& rule, const QString& text, int chain)
{
    const int behind = static_cast<int>(text.size()) + 1;
    QList<Range> ranges;
    for (const auto& [start, end] : matches(rule.match, text)) {
        const int cut = rule.cutsBehind ? end : start;
        if (rule.cutsBehind && !text.mid(cut).startsWith(rule.after))
            continue;
        if (rule.cutsBehind || cut != 0)
            ranges.append({chain, 1, cut + 1});
        if (!rule.cutsBehind || cut != text.size())
            ranges.append({chain, cut + 1, behind});
    }
    return ranges;
}

} // namespace clipRanges
