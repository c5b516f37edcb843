#include "AnyClips.h"
#include "ByteReader.h"
#include "RequireSame.h"
#include "SumOfParts.h"

#include <algorithm>
#include <array>

/// \file
/// A byte string is a molecule of one or two chains and options to clip it. Ranges by depth are
/// compared with the trims that leave a residue, ranges by rules that have a matcher with what that
/// finds, and any other rule with what holds for all cuts. Expressions are put together from units:
/// the engine is no code of ours, and a nested repetition can keep it busy for as long as it likes.

using namespace chem;
using clipRanges::Range;

namespace {

/// Units of expressions; the first ones are plain letters.
constexpr std::array units = {u"K", u"R", u"P", u"A",  u"[KR]", u"(?!P)",  u"(?<=K)", u"(?=.)",
                              u"^", u"$", u".", u"x*", u"K?",   u"K+",     u"|",      u"\\b",
                              u"[", u"(", u")", u"*",  u"\\",   u"\u00e4", u"\xd83d", u"\\K"};
constexpr int plainUnits = 4;

/// Codes of residues: letters, some outside ASCII, halves of a surrogate pair, and no letter.
constexpr std::array<const char16_t*, 12> codes = {
    u"K", u"R", u"P", u"A", u"C", u"K", u"R", u"\u00e4", u"\xd83d", u".", u"\xdc4d", u""};

struct Text
{
    QString text;
    bool isPlain = true;
};

Text anyText(ByteReader* bytes)
{
    Text result;
    for (int count = bytes->below(5); count > 0; --count) {
        const int unit = bytes->below(static_cast<int>(units.size()));
        result.text += QString::fromUtf16(units[static_cast<std::size_t>(unit)]);
        result.isPlain = result.isPlain && unit < plainUnits;
    }
    return result;
}

Chain anyChain(ByteReader* bytes)
{
    QList<MoleculeEntity> residues;
    const int kinds = bytes->below(2) == 0 ? 7 : static_cast<int>(codes.size());
    for (int size = bytes->below(24); size > 0; --size) {
        const int kind = bytes->below(kinds);
        const QString code = QString::fromUtf16(codes[static_cast<std::size_t>(kind)]);
        residues.append(
            AminoAcid(NamedMolecule(Molecule(ChemicalFormula(), 57.0 + kind, 57.0), code, code)));
    }
    return Chain(QStringLiteral("chain"), QString(), residues, MoleculeType::Peptide,
                 ParentChainLocus());
}

QList<Range> checkedRanges(const MoleculeEntity& molecule, const ClipOptions& options)
{
    const QList<Chain> parents = molecule.chains();
    const QList<MoleculeEntity> clips = generateClips(molecule, nullptr, options);
    for (const MoleculeEntity& clip : clips) {
        const QList<Chain> chains = clip.chains();
        require(chains.size() == 1, "a clip has one chain");
        const ParentChainLocus& locus = chains.first().parentLocus();
        const int count = std::max(locus.end - locus.start, 0);
        require(chains.first().residues() ==
                    parents[locus.chain].residues().mid(locus.start, count),
                "a clip has the residues of its range");
        require(hasTotalsOfItsParts(clip), "a clip has the mass of its residues");
        require(clip.transformations().size() == 1, "a clip has one step");
    }
    return clipRanges::rangesOf(clips);
}

void clipByDepth(ByteReader* bytes, const MoleculeEntity& molecule)
{
    clipRanges::Depths depths = {};
    for (int* depth :
         {&depths.startSingle, &depths.endSingle, &depths.startDouble, &depths.endDouble})
        *depth = bytes->aroundRange(24);
    QList<int> residueCounts;
    const QList<Chain> chains = molecule.chains();
    for (const Chain& chain : chains)
        residueCounts.append(static_cast<int>(chain.residues().size()) - 2);
    requireSame(checkedRanges(molecule, depths.options()), clipRanges::trims(residueCounts, depths),
                "trims leave a residue");
}

/// The codes between the ends; `readable` tells whether each is one unit of valid text.
QString letters(const Chain& chain, bool* readable)
{
    QString text;
    *readable = true;
    const QList<MoleculeEntity> between =
        chain.residues().mid(1, std::max<qsizetype>(chain.residues().size() - 2, 0));
    for (const MoleculeEntity& residue : between) {
        const QString code = residue.code();
        *readable = *readable && code.size() == 1;
        text += code;
    }
    *readable = *readable && text.isValidUtf16();
    return text;
}

/// The cuts of a rule of plain letters.
QList<Range> plainCuts(const QString& text, const QString& before, const QString& after, int chain)
{
    if (!before.isEmpty())
        return clipRanges::cuts({clipRanges::plainText(before), true, after}, text, chain);
    if (!after.isEmpty())
        return clipRanges::cuts({clipRanges::plainText(after), false, {}}, text, chain);
    return {};
}

void checkRule(const MoleculeEntity& molecule, const Text& before, const Text& after)
{
    const auto options = ClipOptions::createClipByResidue({before.text}, {after.text});
    const QList<Range> ranges = checkedRanges(molecule, options);
    const QList<Chain> chains = molecule.chains();
    QList<Range> expected;
    bool allReadable = true;
    for (int chain = 0; chain < chains.size(); ++chain) {
        const int last = static_cast<int>(chains[chain].residues().size()) - 1;
        require(ranges.contains(Range{chain, 0, last}), "each chain begins with its first range");
        bool readable = false;
        const QString text = letters(chains[chain], &readable);
        allReadable = allReadable && readable;
        expected.append({chain, 0, last});
        expected += plainCuts(text, before.text, after.text, chain);
    }
    if (allReadable && before.isPlain && after.isPlain)
        requireSame(ranges, expected, "plain letters cut where they stand");
    for (const Range& range : ranges) {
        const int last = static_cast<int>(chains[range.chain].residues().size()) - 1;
        const bool isFirst = range.start == 0 && range.end == last;
        require(isFirst || range.start == 1 || range.end == last, "a cut has two sides");
        require(range.end <= std::max(last, 1), "a cut lies in the chain");
    }
}

/// Rules whose cuts matchers find as well.
void checkMatchers(ByteReader* bytes)
{
    const QStringList texts = anyClips::anyTexts(bytes);
    const anyClips::Rules rules = anyClips::anyRules(bytes);
    requireSame(checkedRanges(anyClips::moleculeOfTexts(texts), rules.options()),
                anyClips::rangesByMatchers(rules, texts), "cuts lie where the matchers find them");
}

void noMessages(QtMsgType, const QMessageLogContext&, const QString& text)
{
    require(false, qPrintable(text));
}

} // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***)
{
    qInstallMessageHandler(noMessages);
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    ByteReader bytes(data, size);
    QList<Chain> chains = {anyChain(&bytes)};
    if (bytes.below(2) == 1)
        chains.append(anyChain(&bytes));
    const MoleculeEntity molecule =
        constructProteinFromChains(QStringLiteral("molecule"), chains, {}, {}, nullptr);

    clipByDepth(&bytes, molecule);
    for (int rule = 0; rule < 3 && !bytes.atEnd(); ++rule) {
        const Text before = anyText(&bytes);
        checkRule(molecule, before, anyText(&bytes));
    }
    checkMatchers(&bytes);
    return 0;
}
