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

/// A residue rule, ready to cut. Its expression is compiled when the first chain needs it, once for
/// all chains.
struct CutRule
{
    QRegularExpression expression;
    bool cutsBehind; ///< The cut lies behind a match, and `after` must stand there; else before it.
    QString after;
};

QList<CutRule> cutRules(const ClipOptions& options)
{
    QList<CutRule> rules;
    const QList<ClipOptions::ResidueBeforeAfter> texts = options.residueBeforeAfterVector();
    for (const auto& [before, after] : texts) {
        if (!before.isEmpty())
            rules.append({QRegularExpression(before), true, after});
        else if (!after.isEmpty())
            rules.append({QRegularExpression(after), false, QString()});
    }
    return rules;
}

/// The ranges of one chain. A chain has its terminals at both ends, so its real residues lie at
/// positions 1 to size - 2.
class ChainRanges
{
public:
    ChainRanges(const Chain& chain, int chainIndex)
        : m_chain(chain)
        , m_chainIndex(chainIndex)
        , m_size(static_cast<int>(chain.residues().size()))
    {
    }

    /// The deepest trim that leaves one residue; below zero for a chain of terminals alone.
    int deepestTrim() const { return m_size - 3; }

    /// The whole chain, then the trims of its start, then those of its end.
    Ranges singleClips(int startDepth, int endDepth) const
    {
        const int fromStart = std::min(startDepth, deepestTrim());
        const int fromEnd = std::min(endDepth, deepestTrim());
        Ranges ranges;
        ranges.reserve(qsizetype(std::max(fromStart, 0)) + 1 + std::max(fromEnd, 0));
        ranges.append(range(1, m_size - 1));
        for (int depth = 1; depth <= fromStart; ++depth)
            ranges.append(range(depth + 1, m_size - 1));
        for (int depth = 1; depth <= fromEnd; ++depth)
            ranges.append(range(1, m_size - 1 - depth));
        return ranges;
    }

    /// The trims of both ends. At least one residue stays.
    Ranges doubleClips(int startDepth, int endDepth) const
    {
        const int fromStart = std::min(startDepth, deepestTrim());
        const int fromEnd = std::min(endDepth, deepestTrim());
        Ranges ranges;
        ranges.reserve(qsizetype(std::max(fromStart, 0)) * std::max(fromEnd, 0));
        for (int a = 1; a <= fromStart; ++a) {
            for (int b = 1; b <= std::min(fromEnd, deepestTrim() - a); ++b)
                ranges.append(range(a + 1, m_size - 1 - b));
        }
        return ranges;
    }

    /// The chain with its first terminal, which digests have always listed so, then both sides of
    /// each cut.
    Ranges residueClips(const QList<CutRule>& rules) const
    {
        Ranges ranges = {range(0, m_size - 1)};
        const std::optional<QString> letters = residueLetters();
        if (!letters)
            return ranges;
        for (const CutRule& rule : rules)
            addCuts(rule, *letters, &ranges);
        return ranges;
    }

private:
    ParentChainLocus range(int start, int end) const { return {{}, m_chainIndex, start, end}; }

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

    void addCuts(const CutRule& rule, const QString& letters, Ranges* ranges) const
    {
        if (!rule.expression.isValid()) // matching with it would write a warning
            return;
        QRegularExpressionMatchIterator matches = rule.expression.globalMatch(letters);
        while (matches.hasNext()) {
            const QRegularExpressionMatch match = matches.next();
            if (rule.cutsBehind)
                addCutBehind(match, rule.after, letters, ranges);
            else
                addCutBefore(match, ranges);
        }
    }

    void addCutBefore(const QRegularExpressionMatch& match, Ranges* ranges) const
    {
        const int cut = static_cast<int>(match.capturedStart(0));
        if (cut != 0)
            ranges->append(range(1, cut + 1));
        ranges->append(range(cut + 1, m_size - 1));
    }

    void addCutBehind(const QRegularExpressionMatch& match, const QString& after,
                      const QString& letters, Ranges* ranges) const
    {
        const int cut = static_cast<int>(match.capturedEnd(0));
        // In a chain of terminals alone the rest is null, which starts with nothing but null.
        if (!after.isEmpty() && !QStringView(letters).sliced(cut).startsWith(after))
            return;
        ranges->append(range(1, cut + 1));
        if (cut != letters.size())
            ranges->append(range(cut + 1, m_size - 1));
    }

    const Chain& m_chain;
    int m_chainIndex;
    int m_size;
};

Ranges chainClips(const ChainRanges& chain, const ClipOptions& options, const QList<CutRule>& rules)
{
    switch (options.clipType()) {
    case ClipOptions::ClipAll:
        return chain.singleClips(chain.deepestTrim(), chain.deepestTrim());
    case ClipOptions::ClipByDepth:
        return chain.singleClips(options.depthFromStartSingle(), options.depthFromEndSingle());
    default:
        return chain.residueClips(rules);
    }
}

Ranges clipRanges(const QList<Chain>& chains, const ClipOptions& options)
{
    const QList<CutRule> rules = cutRules(options);
    Ranges ranges;
    for (int i = 0; i < chains.size(); ++i)
        ranges += chainClips(ChainRanges(chains[i], i), options, rules);
    if (options.clipType() != ClipOptions::ClipByDepth)
        return ranges;

    for (int i = 0; i < chains.size(); ++i) {
        ranges += ChainRanges(chains[i], i)
                      .doubleClips(options.depthFromStartDouble(), options.depthFromEndDouble());
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
        // which links come along is decided there
        clips.append(ChainFragmenter({{noTerminal, range, noTerminal}}).transform(molecule));
    return clips;
}

} // namespace chem
