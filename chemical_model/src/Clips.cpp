#include "Clips.h"

#include "ChainFragmenter.h"

#include <QRegularExpression>
#include <QStringView>

#include <algorithm>
#include <optional>
#include <utility>

namespace chem {

ClipOptions ClipOptions::createNoClipping()
{
    return ClipOptions();
}

ClipOptions ClipOptions::createClipAll()
{
    ClipOptions options;
    options.m_clipType = ClipAll;
    return options;
}

ClipOptions ClipOptions::createClipByDepth(int startSingle, int endSingle, int startDouble,
                                           int endDouble)
{
    ClipOptions options;
    options.m_clipType = ClipByDepth;
    options.m_depthFromStartSingle = startSingle;
    options.m_depthFromEndSingle = endSingle;
    options.m_depthFromStartDouble = startDouble;
    options.m_depthFromEndDouble = endDouble;
    return options;
}

ClipOptions ClipOptions::createClipByResidue(const QList<QString>& before,
                                             const QList<QString>& after)
{
    ClipOptions options;
    options.m_clipType = ClipByResidue;
    const qsizetype count = std::min(before.size(), after.size());
    options.m_residueBeforeAfter.reserve(count);
    for (qsizetype i = 0; i < count; ++i)
        options.m_residueBeforeAfter.append({before[i], after[i]});
    return options;
}

namespace {

using Ranges = QList<ParentChainLocus>;

/// The ranges of one chain. A chain has its terminals at both ends, so its real residues lie at
/// positions 1 to size - 2.
class ChainRanges
{
public:
    ChainRanges(const Chain& chain, int chainIndex, Ranges* ranges)
        : m_chain(chain)
        , m_chainIndex(chainIndex)
        , m_size(static_cast<int>(chain.residues().size()))
        , m_ranges(ranges)
    {
    }

    void addClips(const ClipOptions& options)
    {
        switch (options.clipType()) {
        case ClipOptions::ClipAll:
            return addSingleClips(deepestTrim(), deepestTrim());
        case ClipOptions::ClipByDepth:
            return addSingleClips(options.depthFromStartSingle(), options.depthFromEndSingle());
        default:
            return addResidueClips(options.residueBeforeAfterVector());
        }
    }

    /// Trims both ends. At least one residue stays.
    void addDoubleClips(int startDepth, int endDepth)
    {
        const int fromStart = std::min(startDepth, deepestTrim());
        const int fromEnd = std::min(endDepth, deepestTrim());
        reserve(qsizetype(std::max(fromStart, 0)) * std::max(fromEnd, 0));
        for (int a = 1; a <= fromStart; ++a) {
            for (int b = 1; b <= std::min(fromEnd, deepestTrim() - a); ++b)
                add(a + 1, m_size - 1 - b);
        }
    }

private:
    /// The deepest trim that leaves one residue; below zero for a chain of terminals alone.
    int deepestTrim() const { return m_size - 3; }

    void reserve(qsizetype count) { m_ranges->reserve(m_ranges->size() + count); }

    void add(int start, int end) { m_ranges->append({QString(), m_chainIndex, start, end}); }

    /// The whole chain, then the trims of its start, then those of its end.
    void addSingleClips(int startDepth, int endDepth)
    {
        const int fromStart = std::min(startDepth, deepestTrim());
        const int fromEnd = std::min(endDepth, deepestTrim());
        reserve(qsizetype(std::max(fromStart, 0)) + 1 + std::max(fromEnd, 0));
        add(1, m_size - 1);
        for (int depth = 1; depth <= fromStart; ++depth)
            add(depth + 1, m_size - 1);
        for (int depth = 1; depth <= fromEnd; ++depth)
            add(1, m_size - 1 - depth);
    }

    /// The chain with its first terminal, which digests have always listed so, then both sides of
    /// each cut.
    void addResidueClips(const QList<ClipOptions::ResidueBeforeAfter>& rules)
    {
        add(0, m_size - 1);
        const std::optional<QString> letters = residueLetters();
        if (!letters)
            return;
        for (const ClipOptions::ResidueBeforeAfter& rule : rules) {
            if (!rule.before.isEmpty())
                addCutsBehind(rule, *letters);
            else if (!rule.after.isEmpty())
                addCutsBefore(rule.after, *letters);
        }
    }

    /// The one-letter codes of the real residues; nothing if one of them is not one letter.
    std::optional<QString> residueLetters() const
    {
        QString letters;
        for (int position = 1; position <= m_size - 2; ++position) {
            const QString code = m_chain.residues()[position].code();
            if (code.size() != 1)
                return std::nullopt;
            letters += code;
        }
        return letters;
    }

    /// Calls `visit` with each match of `pattern`. An invalid pattern has none.
    template <typename Visit>
    static void forEachMatch(const QString& pattern, const QString& letters, Visit visit)
    {
        const QRegularExpression expression(pattern);
        if (!expression.isValid())
            return;
        QRegularExpressionMatchIterator matches = expression.globalMatch(letters);
        while (matches.hasNext())
            visit(matches.next());
    }

    void addCutsBefore(const QString& after, const QString& letters)
    {
        forEachMatch(after, letters, [this](const QRegularExpressionMatch& match) {
            const int cut = static_cast<int>(match.capturedStart(0));
            if (cut != 0)
                add(1, cut + 1);
            add(cut + 1, m_size - 1);
        });
    }

    void addCutsBehind(const ClipOptions::ResidueBeforeAfter& rule, const QString& letters)
    {
        forEachMatch(rule.before, letters, [&](const QRegularExpressionMatch& match) {
            const int cut = static_cast<int>(match.capturedEnd(0));
            if (!QStringView(letters).sliced(cut).startsWith(rule.after))
                return;
            add(1, cut + 1);
            if (cut != letters.size())
                add(cut + 1, m_size - 1);
        });
    }

    const Chain& m_chain;
    int m_chainIndex;
    int m_size;
    Ranges* m_ranges;
};

Ranges clipRanges(const QList<Chain>& chains, const ClipOptions& options)
{
    Ranges ranges;
    int index = 0;
    for (const Chain& chain : chains)
        ChainRanges(chain, index++, &ranges).addClips(options);
    if (options.clipType() != ClipOptions::ClipByDepth)
        return ranges;

    index = 0;
    for (const Chain& chain : chains) {
        ChainRanges(chain, index++, &ranges)
            .addDoubleClips(options.depthFromStartDouble(), options.depthFromEndDouble());
    }
    return ranges;
}

} // namespace

QList<MoleculeEntity> generateClips(const MoleculeEntity& molecule, const ChemicalFactory*,
                                    const ClipOptions& options)
{
    if (options.clipType() == ClipOptions::NoClipping)
        return {molecule};

    const Ranges ranges = clipRanges(molecule.chains(), options);
    const MoleculeEntity noTerminal = 0;
    QList<MoleculeEntity> clips;
    clips.reserve(ranges.size());
    for (const ParentChainLocus& range : ranges)
        clips.append(ChainFragmenter({{noTerminal, range, noTerminal}}).transform(molecule));
    return clips;
}

} // namespace chem
