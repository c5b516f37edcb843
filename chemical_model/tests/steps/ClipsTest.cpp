#include "MessageRecorder.h"
#include "SmallMolecules.h"
#include "TestPrinters.h"

#include <gtest/gtest.h>

#include <limits>
#include <type_traits>

using namespace Qt::StringLiterals;
using namespace smallMolecules;
using chem::ClipOptions;
using chem::generateClips;
using chem::Modification;

namespace {

static_assert(std::is_default_constructible_v<ClipOptions>);
static_assert(std::is_copy_assignable_v<ClipOptions>);
static_assert(std::is_move_assignable_v<ClipOptions>);
static_assert(std::is_aggregate_v<ClipOptions::ResidueBeforeAfter>);

constexpr int lowest = std::numeric_limits<int>::min();
constexpr int highest = std::numeric_limits<int>::max();

/// Chain, start and end of one range.
struct Range
{
    int chain;
    int start;
    int end;

    bool operator==(const Range&) const = default;
};

[[maybe_unused]] void PrintTo(const Range& range, std::ostream* stream)
{
    *stream << range.chain << ":(" << range.start << ", " << range.end << ')';
}

QList<Range> ranges(const QList<chem::MoleculeEntity>& clips)
{
    QList<Range> found;
    for (const chem::MoleculeEntity& clip : clips) {
        const QList<chem::Chain> chains = clip.chains();
        EXPECT_EQ(chains.size(), 1);
        const chem::ParentChainLocus& locus = chains.first().parentLocus();
        EXPECT_EQ(locus.label, QString());
        found.append({locus.chain, locus.start, locus.end});
    }
    return found;
}

QList<Range> ranges(const chem::MoleculeEntity& molecule, const ClipOptions& options)
{
    return ranges(generateClips(molecule, nullptr, options));
}

ClipOptions byRule(const QString& before, const QString& after)
{
    return ClipOptions::createClipByResidue({before}, {after});
}

/// The ranges that one rule adds on a chain of these letters, behind the first range.
QList<Range> cuts(const QString& letters, const QString& before, const QString& after)
{
    QList<Range> found = ranges(proteinOf(letters), byRule(before, after));
    EXPECT_EQ(found.value(0), (Range{0, 0, static_cast<int>(letters.size()) + 1}));
    return found.mid(1);
}

/// A chain of this many entries in all, as only a caller can build it when it is short.
chem::MoleculeEntity chainOfSize(int size)
{
    QList<chem::MoleculeEntity> residues;
    for (int i = 0; i < size; ++i)
        residues.append(aminoAcid(QChar(u'A' + i)));
    return moleculeOf({chainOf(residues)});
}

TEST(ClipOptions, ClipTypesHaveStableNumbers)
{
    EXPECT_EQ(ClipOptions::NoClipping, 0);
    EXPECT_EQ(ClipOptions::ClipAll, 1);
    EXPECT_EQ(ClipOptions::ClipByResidue, 2);
    EXPECT_EQ(ClipOptions::ClipByDepth, 3);
}

void expectDefaultDepths(const ClipOptions& options)
{
    EXPECT_EQ(options.depthFromStartSingle(), 2147483647);
    EXPECT_EQ(options.depthFromEndSingle(), 2147483647);
    EXPECT_EQ(options.depthFromStartDouble(), 0);
    EXPECT_EQ(options.depthFromEndDouble(), 0);
}

TEST(ClipOptions, KeepTheDefaultsOfWhatTheyDoNotName)
{
    for (const ClipOptions& options : {ClipOptions(), ClipOptions::createNoClipping()}) {
        EXPECT_EQ(options.clipType(), ClipOptions::NoClipping);
        EXPECT_TRUE(options.residueBeforeAfterVector().isEmpty());
        expectDefaultDepths(options);
    }
    EXPECT_EQ(ClipOptions::createClipAll().clipType(), ClipOptions::ClipAll);
    EXPECT_TRUE(ClipOptions::createClipAll().residueBeforeAfterVector().isEmpty());
    expectDefaultDepths(ClipOptions::createClipAll());
    EXPECT_EQ(byRule(u"K"_s, {}).clipType(), ClipOptions::ClipByResidue);
    expectDefaultDepths(byRule(u"K"_s, {}));
}

TEST(ClipOptions, TakeTheDepthsInTheOrderStartEndStartEnd)
{
    const ClipOptions options = ClipOptions::createClipByDepth(1, -2, 3, highest);
    EXPECT_EQ(options.clipType(), ClipOptions::ClipByDepth);
    EXPECT_EQ(options.depthFromStartSingle(), 1);
    EXPECT_EQ(options.depthFromEndSingle(), -2);
    EXPECT_EQ(options.depthFromStartDouble(), 3);
    EXPECT_EQ(options.depthFromEndDouble(), highest);
    EXPECT_TRUE(options.residueBeforeAfterVector().isEmpty());
}

TEST(ClipOptions, PairRulesUpToTheEndOfTheShorterList)
{
    const QList<QString> three = {u"A"_s, u"B"_s, u"C"_s};
    const QList<QString> two = {u"X"_s, u"Y"_s};
    const auto rules = ClipOptions::createClipByResidue(three, two).residueBeforeAfterVector();
    ASSERT_EQ(rules.size(), 2);
    EXPECT_EQ(rules[0].before, u"A"_s);
    EXPECT_EQ(rules[0].after, u"X"_s);
    EXPECT_EQ(rules[1].before, u"B"_s);
    EXPECT_EQ(rules[1].after, u"Y"_s);

    const auto turned = ClipOptions::createClipByResidue(two, three).residueBeforeAfterVector();
    ASSERT_EQ(turned.size(), 2);
    EXPECT_EQ(turned[1].before, u"Y"_s);
    EXPECT_EQ(turned[1].after, u"B"_s);
    EXPECT_TRUE(ClipOptions::createClipByResidue(three, {}).residueBeforeAfterVector().isEmpty());
}

TEST(ClipOptions, CopiesAndMovesHoldTheSame)
{
    ClipOptions options = byRule(u"K"_s, u"P"_s);
    const ClipOptions copy(options);
    ClipOptions assigned;
    assigned = options;
    const ClipOptions moved(std::move(options));
    for (const ClipOptions& each : {copy, assigned, moved}) {
        EXPECT_EQ(each.clipType(), ClipOptions::ClipByResidue);
        ASSERT_EQ(each.residueBeforeAfterVector().size(), 1);
        EXPECT_EQ(each.residueBeforeAfterVector().first().after, u"P"_s);
    }
}

TEST(Clips, NoClippingGivesTheMoleculeItself)
{
    const chem::MoleculeEntity molecule =
        chem::Modify(14.0).transform(moleculeOf({letterChain(u"AKC"_s), letterChain(u"G"_s)}));
    for (const ClipOptions& options : {ClipOptions(), ClipOptions::createNoClipping()}) {
        const QList<chem::MoleculeEntity> clips = generateClips(molecule, nullptr, options);
        ASSERT_EQ(clips.size(), 1);
        EXPECT_EQ(clips.first(), molecule);
        EXPECT_EQ(clips.first().name(), u"molecule"_s);
        EXPECT_EQ(describe(clips.first()), describe(molecule));
    }
}

TEST(Clips, MoleculeWithoutChainsGivesNoneUnlessNothingIsClipped)
{
    for (const chem::MoleculeEntity& molecule : {moleculeOf({}), chem::MoleculeEntity(5.0)}) {
        EXPECT_TRUE(generateClips(molecule, nullptr, ClipOptions::createClipAll()).isEmpty());
        EXPECT_TRUE(generateClips(molecule, nullptr, byRule(u"K"_s, {})).isEmpty());
        EXPECT_TRUE(
            generateClips(molecule, nullptr, ClipOptions::createClipByDepth(1, 1, 1, 1)).isEmpty());
        EXPECT_EQ(generateClips(molecule, nullptr, ClipOptions()).size(), 1);
    }
}

TEST(Clips, AllTrimsEachEndDownToOneResidue)
{
    EXPECT_EQ(ranges(proteinOf(u"AKCD"_s), ClipOptions::createClipAll()),
              QList<Range>(
                  {{0, 1, 5}, {0, 2, 5}, {0, 3, 5}, {0, 4, 5}, {0, 1, 4}, {0, 1, 3}, {0, 1, 2}}));
}

TEST(Clips, AllGivesTwiceTheResiduesLessOne)
{
    for (int residues = 1; residues <= 12; ++residues) {
        const chem::MoleculeEntity molecule = proteinOf(QString(residues, u'A'));
        EXPECT_EQ(generateClips(molecule, nullptr, ClipOptions::createClipAll()).size(),
                  2 * residues - 1);
    }
}

TEST(Clips, OfOneResidueIsTheWholeChainAlone)
{
    EXPECT_EQ(ranges(proteinOf(u"K"_s), ClipOptions::createClipAll()), QList<Range>({{0, 1, 2}}));
}

TEST(Clips, ByDepthTrimsSingleEndsInOrder)
{
    EXPECT_EQ(ranges(proteinOf(u"AKC"_s), ClipOptions::createClipByDepth(2, 1, 0, 0)),
              QList<Range>({{0, 1, 4}, {0, 2, 4}, {0, 3, 4}, {0, 1, 3}}));
}

TEST(Clips, ByDepthTrimsBothEndsBehindTheWholeChain)
{
    EXPECT_EQ(ranges(proteinOf(u"AKC"_s), ClipOptions::createClipByDepth(0, 0, 1, 1)),
              QList<Range>({{0, 1, 4}, {0, 2, 3}}));
    EXPECT_EQ(ranges(proteinOf(u"AKCDE"_s), ClipOptions::createClipByDepth(0, 0, 2, 3)),
              QList<Range>({{0, 1, 6}, {0, 2, 5}, {0, 2, 4}, {0, 2, 3}, {0, 3, 5}, {0, 3, 4}}));
}

TEST(Clips, ByNoDepthGiveTheWholeOfEachChain)
{
    const chem::MoleculeEntity molecule = moleculeOf({letterChain(u"AKC"_s), letterChain(u"GG"_s)});
    EXPECT_EQ(ranges(molecule, ClipOptions::createClipByDepth(0, 0, 0, 0)),
              QList<Range>({{0, 1, 4}, {1, 1, 3}}));
}

TEST(Clips, OfBothEndsComeBehindTheSingleOnesOfAllChains)
{
    const chem::MoleculeEntity molecule =
        moleculeOf({letterChain(u"AKC"_s), letterChain(u"GPG"_s)});
    EXPECT_EQ(ranges(molecule, ClipOptions::createClipByDepth(1, 1, 1, 1)),
              QList<Range>({{0, 1, 4},
                            {0, 2, 4},
                            {0, 1, 3},
                            {1, 1, 4},
                            {1, 2, 4},
                            {1, 1, 3},
                            {0, 2, 3},
                            {1, 2, 3}}));
}

TEST(Clips, OfBothEndsLeaveOneResidue)
{
    EXPECT_EQ(ranges(proteinOf(u"AKC"_s), ClipOptions::createClipByDepth(0, 0, 5, 5)),
              QList<Range>({{0, 1, 4}, {0, 2, 3}}));
}

/// The trims, told by how many residues go at each end and by asking whether one stays.
QList<Range> trims(int residues, int startSingle, int endSingle, int startDouble, int endDouble)
{
    const int behind = residues + 1;
    QList<Range> found = {{0, 1, behind}};
    for (int off = 1; off <= startSingle && residues - off >= 1; ++off)
        found.append({0, 1 + off, behind});
    for (int off = 1; off <= endSingle && residues - off >= 1; ++off)
        found.append({0, 1, behind - off});
    for (int left = 1; left <= startDouble && residues - left >= 1; ++left) {
        for (int right = 1; right <= endDouble && residues - left - right >= 1; ++right)
            found.append({0, 1 + left, behind - right});
    }
    return found;
}

TEST(Clips, ByAnyDepthsAreTheTrimsThatLeaveAResidue)
{
    const QList<int> depths = {lowest, -1, 0, 1, 2, 3, 4, highest};
    for (const int residues : {1, 3, 4}) {
        const chem::MoleculeEntity molecule = proteinOf(QString(residues, u'A'));
        for (const int start : depths) {
            for (const int end : depths) {
                SCOPED_TRACE(testing::Message() << residues << ": " << start << ", " << end);
                EXPECT_EQ(ranges(molecule, ClipOptions::createClipByDepth(start, end, 0, 0)),
                          trims(residues, start, end, 0, 0));
                EXPECT_EQ(ranges(molecule, ClipOptions::createClipByDepth(0, 0, start, end)),
                          trims(residues, 0, 0, start, end));
                EXPECT_EQ(ranges(molecule, ClipOptions::createClipByDepth(end, 1, start, end)),
                          trims(residues, end, 1, start, end));
            }
        }
    }
}

TEST(Clips, OfAChainTooShortForTerminalsAreEmpty)
{
    const QList<int> depths = {lowest, 0, 1, highest};
    for (int size = 0; size <= 2; ++size) {
        const chem::MoleculeEntity molecule = chainOfSize(size);
        const QList<Range> whole = {{0, 1, size - 1}};
        EXPECT_EQ(ranges(molecule, ClipOptions::createClipAll()), whole);
        for (const int depth : depths) {
            const auto options = ClipOptions::createClipByDepth(depth, depth, depth, depth);
            EXPECT_EQ(ranges(molecule, options), whole);
            const QList<chem::MoleculeEntity> clips = generateClips(molecule, nullptr, options);
            EXPECT_TRUE(clips.first().chains().first().residues().isEmpty());
            EXPECT_EQ(clips.first().averageMass(), 0.0);
        }
        EXPECT_EQ(ranges(molecule, byRule(u"[AB]"_s, {})), QList<Range>({{0, 0, size - 1}}));
    }
}

TEST(Clips, OfAChainOfThreeEntriesHoldTheOneInBetween)
{
    const chem::MoleculeEntity molecule = chainOfSize(3);
    EXPECT_EQ(ranges(molecule, ClipOptions::createClipByDepth(highest, highest, highest, highest)),
              QList<Range>({{0, 1, 2}}));
    EXPECT_EQ(ranges(molecule, byRule(u"B"_s, {})), QList<Range>({{0, 0, 2}, {0, 1, 2}}));
    EXPECT_TRUE(ranges(molecule, byRule(u"A|C"_s, {})) == QList<Range>({{0, 0, 2}}));
}

TEST(Clips, ByRuleOnNoTextMatchItsEmptyMatches)
{
    // The text of these chains is empty: p is 0, which is also its length.
    for (int size = 0; size <= 2; ++size) {
        const chem::MoleculeEntity molecule = chainOfSize(size);
        EXPECT_EQ(ranges(molecule, byRule(u"^"_s, {})),
                  QList<Range>({{0, 0, size - 1}, {0, 1, 1}}));
        EXPECT_EQ(ranges(molecule, byRule({}, u"$"_s)),
                  QList<Range>({{0, 0, size - 1}, {0, 1, size - 1}}));
    }
}

TEST(Clips, EmptyTextBehindSkipsNoMatchWhetherNullOrNot)
{
    for (const QString& after : {QString(), u""_s, u"x"_s.left(0)}) {
        EXPECT_EQ(ranges(chainOfSize(2), byRule(u"^"_s, after)),
                  QList<Range>({{0, 0, 1}, {0, 1, 1}}));
        EXPECT_EQ(cuts(u"AKC"_s, u"K"_s, after), QList<Range>({{0, 1, 3}, {0, 3, 4}}));
    }
}

TEST(Clips, ByRuleStartWithTheFirstTerminalAndLeaveTheLastOut)
{
    const QList<chem::MoleculeEntity> clips =
        generateClips(proteinOf(u"AKC"_s), nullptr, byRule({}, {}));
    ASSERT_EQ(ranges(clips), QList<Range>({{0, 0, 4}}));
    const chem::Chain chain = clips.first().chains().first();
    ASSERT_EQ(chain.residues().size(), 4);
    EXPECT_EQ(chain.residues().first().name(), u"start"_s);
    EXPECT_EQ(chain.residues().last().code(), u"C"_s);
}

TEST(Clips, ByNoRuleGiveTheFirstRangeOfEachChain)
{
    const chem::MoleculeEntity molecule = moleculeOf({letterChain(u"AKC"_s), letterChain(u"GG"_s)});
    EXPECT_EQ(ranges(molecule, ClipOptions::createClipByResidue({}, {})),
              QList<Range>({{0, 0, 4}, {1, 0, 3}}));
}

TEST(Clips, BeforeAloneCutsBehindItsMatches)
{
    EXPECT_EQ(cuts(u"AKC"_s, u"K"_s, {}), QList<Range>({{0, 1, 3}, {0, 3, 4}}));
    EXPECT_EQ(cuts(u"AKRC"_s, u"[KR]"_s, {}),
              QList<Range>({{0, 1, 3}, {0, 3, 5}, {0, 1, 4}, {0, 4, 5}}));
}

TEST(Clips, BeforeWithAfterCutsOnlyWhereTheTextStandsBehind)
{
    EXPECT_EQ(cuts(u"AKC"_s, u"K"_s, u"C"_s), QList<Range>({{0, 1, 3}, {0, 3, 4}}));
    EXPECT_TRUE(cuts(u"AKC"_s, u"K"_s, u"P"_s).isEmpty());
    EXPECT_EQ(cuts(u"KCKPKC"_s, u"K"_s, u"P"_s), QList<Range>({{0, 1, 4}, {0, 4, 7}}));
    EXPECT_EQ(cuts(u"KPGKPP"_s, u"K"_s, u"PP"_s), QList<Range>({{0, 1, 5}, {0, 5, 7}}));
    EXPECT_TRUE(cuts(u"AKP"_s, u"K"_s, u"PP"_s).isEmpty()); // the text ends too early
    EXPECT_TRUE(cuts(u"AK"_s, u"K"_s, u"K"_s).isEmpty());
}

TEST(Clips, AfterBesideBeforeIsPlainText)
{
    EXPECT_TRUE(cuts(u"AKC"_s, u"K"_s, u"[CD]"_s).isEmpty());
    EXPECT_TRUE(cuts(u"AKC"_s, u"K"_s, u"."_s).isEmpty());
    EXPECT_EQ(cuts(u"AK.C"_s, u"K"_s, u"."_s), QList<Range>({{0, 1, 3}, {0, 3, 5}}));
    EXPECT_EQ(cuts(u"K[C"_s, u"K"_s, u"["_s), QList<Range>({{0, 1, 2}, {0, 2, 4}}));
    EXPECT_TRUE(cuts(u"AKC"_s, u"K"_s, u"c"_s).isEmpty()); // case counts
    EXPECT_TRUE(cuts(u"AKC"_s, u"k"_s, {}).isEmpty());
}

TEST(Clips, AfterAloneIsAnExpressionAndCutsBeforeItsMatches)
{
    EXPECT_EQ(cuts(u"AKC"_s, {}, u"[KP]"_s), QList<Range>({{0, 1, 2}, {0, 2, 4}}));
    // p is 0, which gives no left side, then 2.
    EXPECT_EQ(cuts(u"KAK"_s, {}, u"K"_s), QList<Range>({{0, 1, 4}, {0, 1, 3}, {0, 3, 4}}));
}

TEST(Clips, MatchAtTheEndOfTheTextGivesTheLeftSideAlone)
{
    EXPECT_EQ(cuts(u"AK"_s, u"K"_s, {}), QList<Range>({{0, 1, 3}}));
    // The same match of an `after` gives both sides, one of them at the very end.
    EXPECT_EQ(cuts(u"AK"_s, {}, u"K"_s), QList<Range>({{0, 1, 2}, {0, 2, 3}}));
}

TEST(Clips, BeforeAtTheStartOfTheTextGivesAnEmptyLeftSide)
{
    EXPECT_EQ(cuts(u"AK"_s, u"^"_s, {}), QList<Range>({{0, 1, 1}, {0, 1, 3}}));
    EXPECT_EQ(cuts(u"AK"_s, u"^"_s, u"A"_s), QList<Range>({{0, 1, 1}, {0, 1, 3}}));
    EXPECT_TRUE(cuts(u"AK"_s, u"^"_s, u"K"_s).isEmpty());
}

TEST(Clips, AfterAtTheEndOfTheTextGivesAnEmptyRightSide)
{
    EXPECT_EQ(cuts(u"AK"_s, {}, u"$"_s), QList<Range>({{0, 1, 3}, {0, 3, 3}}));
}

TEST(Clips, EmptyMatchesCutAtEachPlace)
{
    EXPECT_EQ(cuts(u"AK"_s, u"x*"_s, {}),
              QList<Range>({{0, 1, 1}, {0, 1, 3}, {0, 1, 2}, {0, 2, 3}, {0, 1, 3}}));
    EXPECT_EQ(cuts(u"AK"_s, {}, u"x*"_s),
              QList<Range>({{0, 1, 3}, {0, 1, 2}, {0, 2, 3}, {0, 1, 3}, {0, 3, 3}}));
}

TEST(Clips, MatchesDoNotOverlap)
{
    EXPECT_EQ(cuts(u"KKKA"_s, u"KK"_s, {}), QList<Range>({{0, 1, 3}, {0, 3, 5}}));
    EXPECT_EQ(cuts(u"AKKC"_s, u"K+"_s, {}), QList<Range>({{0, 1, 4}, {0, 4, 5}}));
    EXPECT_EQ(cuts(u"AKKC"_s, {}, u"K+"_s), QList<Range>({{0, 1, 2}, {0, 2, 5}}));
}

TEST(Clips, LookaroundSeesTheWholeText)
{
    EXPECT_EQ(cuts(u"KPKA"_s, u"K(?!P)"_s, {}), QList<Range>({{0, 1, 4}, {0, 4, 5}}));
    EXPECT_EQ(cuts(u"KPKA"_s, u"(?<=P)K"_s, {}), QList<Range>({{0, 1, 4}, {0, 4, 5}}));
    EXPECT_EQ(cuts(u"KPKA"_s, {}, u"(?<=K)(?!P)"_s), QList<Range>({{0, 1, 4}, {0, 4, 5}}));
}

TEST(Clips, RulesRunInTheirOrderAndRepeatsStay)
{
    const ClipOptions options = ClipOptions::createClipByResidue({u"C"_s, u"K"_s, {}, {}, u"K"_s},
                                                                 {{}, {}, {}, u"C"_s, u"C"_s});
    EXPECT_EQ(ranges(proteinOf(u"AKCD"_s), options), QList<Range>({{0, 0, 5},
                                                                   {0, 1, 4},
                                                                   {0, 4, 5},
                                                                   {0, 1, 3},
                                                                   {0, 3, 5},
                                                                   {0, 1, 3},
                                                                   {0, 3, 5},
                                                                   {0, 1, 3},
                                                                   {0, 3, 5}}));
}

TEST(Clips, RulesRunOnEachChainInTurn)
{
    const chem::MoleculeEntity molecule =
        moleculeOf({letterChain(u"AKC"_s), letterChain(u"KG"_s), letterChain(u"GG"_s)});
    EXPECT_EQ(ranges(molecule, byRule(u"K"_s, {})),
              QList<Range>(
                  {{0, 0, 4}, {0, 1, 3}, {0, 3, 4}, {1, 0, 3}, {1, 1, 2}, {1, 2, 3}, {2, 0, 3}}));
}

TEST(Clips, InvalidRulesGiveNoClipAndNoMessage)
{
    const MessageRecorder recorder;
    for (const QString& invalid : {u"["_s, u"("_s, u"*"_s, u"K{2}("_s, u"(?<name"_s, u"\\"_s,
                                   u"(?<=K+)"_s, QString(QChar(0xD800))}) {
        SCOPED_TRACE(invalid.toStdString());
        EXPECT_TRUE(cuts(u"AKC"_s, invalid, {}).isEmpty());
        EXPECT_TRUE(cuts(u"AKC"_s, invalid, u"C"_s).isEmpty());
        EXPECT_TRUE(cuts(u"AKC"_s, {}, invalid).isEmpty());
    }
    EXPECT_TRUE(MessageRecorder::messages().isEmpty());
}

TEST(Clips, InvalidRuleLeavesTheOthersAlone)
{
    const ClipOptions options = ClipOptions::createClipByResidue({u"["_s, u"K"_s}, {{}, {}});
    EXPECT_EQ(ranges(proteinOf(u"AKC"_s), options),
              QList<Range>({{0, 0, 4}, {0, 1, 3}, {0, 3, 4}}));
}

TEST(Clips, ChainWithACodeOfAnotherLengthGivesTheFirstRangeAlone)
{
    for (const QString& code : {QString(), u"Me"_s, u"👍"_s}) {
        const chem::MoleculeEntity molecule =
            moleculeOf({chainOf({startTerminal(), aminoAcid(u'K'), aminoAcid(code, u"C"_s, 12.0),
                                 aminoAcid(u'K'), endTerminal()}),
                        letterChain(u"KA"_s)});
        EXPECT_EQ(ranges(molecule, byRule(u"K"_s, {})),
                  QList<Range>({{0, 0, 4}, {1, 0, 3}, {1, 1, 2}, {1, 2, 3}}));
    }
}

TEST(Clips, CodesOfTheTerminalsDoNotMatter)
{
    const chem::MoleculeEntity molecule =
        moleculeOf({chainOf({aminoAcid(u"Start"_s, u"H"_s, 1.0), aminoAcid(u'A'), aminoAcid(u'K'),
                             aminoAcid(u"K"_s, u"OH"_s, 17.0)})});
    EXPECT_EQ(ranges(molecule, byRule(u"K"_s, {})), QList<Range>({{0, 0, 3}, {0, 1, 3}}));
}

TEST(Clips, LoneSurrogateInTheTextMatchesNothing)
{
    const MessageRecorder recorder;
    const QString high(QChar(0xD83D));
    EXPECT_TRUE(cuts(high + u"KA"_s, u"K"_s, {}).isEmpty());
    EXPECT_TRUE(cuts(u"KA"_s + high, {}, u"A"_s).isEmpty());
    EXPECT_TRUE(MessageRecorder::messages().isEmpty());
}

TEST(Clips, SurrogatePairIsOneCharacterAndTwoResidues)
{
    const QString pair = u"👍"_s;
    ASSERT_EQ(pair.size(), 2);
    EXPECT_EQ(cuts(pair + u"A"_s, u"."_s, {}), QList<Range>({{0, 1, 3}, {0, 3, 4}, {0, 1, 4}}));
    EXPECT_EQ(cuts(u"A"_s + pair, u"A"_s, pair), QList<Range>({{0, 1, 2}, {0, 2, 4}}));
}

TEST(Clips, EachIsOneChainNamedFragment)
{
    const chem::MoleculeEntity molecule =
        moleculeOf({letterChain(u"AKC"_s, u"left"_s), letterChain(u"GP"_s, u"right"_s)});
    const QList<chem::MoleculeEntity> clips =
        generateClips(molecule, nullptr, ClipOptions::createClipAll());
    for (const chem::MoleculeEntity& clip : clips) {
        const QList<chem::Chain> chains = clip.chains();
        ASSERT_EQ(chains.size(), 1);
        const chem::Chain& chain = chains.first();
        const chem::Chain parent = molecule.chains()[chain.parentLocus().chain];
        EXPECT_EQ(clip.name(), u"fragment"_s);
        EXPECT_EQ(clip.code(), u"M"_s);
        EXPECT_EQ(clip.type(), chem::MoleculeType::Protein);
        EXPECT_EQ(clip.description(), QString());
        EXPECT_EQ(chain.name(), parent.name());
        EXPECT_EQ(chain.code(), parent.code());
        EXPECT_EQ(chain.type(), parent.type());
        EXPECT_EQ(chain.residues(),
                  parent.residues().mid(chain.parentLocus().start,
                                        chain.parentLocus().end - chain.parentLocus().start));
    }
}

TEST(Clips, MassIsThatOfTheResiduesWithoutTerminals)
{
    const QList<chem::MoleculeEntity> clips =
        generateClips(proteinOf(u"AKC"_s), nullptr, ClipOptions::createClipByDepth(1, 0, 0, 0));
    const double lysineAndCysteine = aminoAcid(u'K').averageMass() + aminoAcid(u'C').averageMass();
    ASSERT_EQ(clips.size(), 2);
    EXPECT_EQ(clips[0].averageMass(), aminoAcid(u'A').averageMass() + lysineAndCysteine);
    EXPECT_EQ(clips[1].averageMass(), lysineAndCysteine);
    EXPECT_EQ(clips[1].monoMass(), lysineAndCysteine / 2);
    EXPECT_EQ(clips[1].formula().toString(), u"C4H6N2O2"_s);
}

TEST(Clips, KeepAllModificationsOfTheMoleculeAndTheirMasses)
{
    const QList<Modification> modifications = {Modification(14.0, {{0, 1}, {1, 1}})};
    const chem::MoleculeEntity molecule =
        moleculeOf({letterChain(u"A"_s), letterChain(u"G"_s)}, modifications);
    const QList<chem::MoleculeEntity> clips =
        generateClips(molecule, nullptr, ClipOptions::createClipAll());
    ASSERT_EQ(clips.size(), 2);
    for (const chem::MoleculeEntity& clip : clips)
        EXPECT_EQ(clip.modifications(), modifications);
    EXPECT_EQ(clips[0].averageMass(), aminoAcid(u'A').averageMass() + 14.0);
    EXPECT_EQ(clips[1].averageMass(), aminoAcid(u'G').averageMass() + 14.0);
}

TEST(Clips, KeepLinksInsideTheRangeOnePlaceTooHigh)
{
    const chem::MoleculeEntity molecule =
        moleculeOf({letterChain(u"CAC"_s)}, {}, {chem::Link(-2.0, {{0, 1}, {0, 3}})});
    const QList<chem::MoleculeEntity> clips =
        generateClips(molecule, nullptr, ClipOptions::createClipByDepth(1, 0, 0, 0));
    ASSERT_EQ(clips.size(), 2);
    ASSERT_EQ(clips[0].links().size(), 1);
    EXPECT_EQ(clips[0].links().first().connection(),
              chem::Link::Connection({0, 1}, {0, 3})); // the residues lie at 0 and 2
    EXPECT_TRUE(clips[1].links().isEmpty());
}

TEST(Clips, PointBackToTheMolecule)
{
    const chem::MoleculeEntity molecule = chem::Modify(14.0).transform(proteinOf(u"AKC"_s));
    const QString before = describe(molecule);
    for (const ClipOptions& options : {ClipOptions::createClipAll(), byRule(u"K"_s, {}),
                                       ClipOptions::createClipByDepth(1, 1, 1, 1)}) {
        const QList<chem::MoleculeEntity> clips = generateClips(molecule, nullptr, options);
        for (const chem::MoleculeEntity& clip : clips) {
            EXPECT_EQ(historyTypes(clip), QList<int>({0, 7}));
            EXPECT_EQ(describe(stateBefore(clip, 1)), before);
        }
    }
    EXPECT_EQ(describe(molecule), before);
}

TEST(Clips, AreWhatAFragmenterWithBlankEndsGives)
{
    const chem::MoleculeEntity molecule = proteinOf(u"AKC"_s);
    const QList<chem::MoleculeEntity> clips = generateClips(molecule, nullptr, byRule(u"K"_s, {}));
    const QList<Range> expected = {{0, 0, 4}, {0, 1, 3}, {0, 3, 4}};
    ASSERT_EQ(clips.size(), expected.size());
    for (qsizetype i = 0; i < clips.size(); ++i) {
        const chem::ParentChainLocus locus = {{}, 0, expected[i].start, expected[i].end};
        EXPECT_EQ(describe(clips[i]),
                  describe(chem::ChainFragmenter({{0, locus, 0}}).transform(molecule)));
    }
}

TEST(Clips, DoNotUseTheFactory)
{
    const chem::MoleculeEntity molecule = proteinOf(u"AKC"_s);
    const auto factory = chem::defaultChemicalFactory();
    EXPECT_EQ(ranges(generateClips(molecule, factory.data(), byRule(u"K"_s, {}))),
              ranges(generateClips(molecule, nullptr, byRule(u"K"_s, {}))));
}

TEST(Clips, OfAnOligonucleotideWithEmptyCodesIgnoreTheRules)
{
    const auto entry = [](const QString& code) {
        return aminoAcid(code, u"C"_s, 12.0);
    };
    const chem::MoleculeEntity molecule =
        moleculeOf({chainOf({startTerminal(), entry({}), entry(u"A"_s), entry(u"p"_s), entry({}),
                             entry(u"G"_s), entry({}), endTerminal()})});
    EXPECT_EQ(ranges(molecule, byRule(u"A"_s, {})), QList<Range>({{0, 0, 7}}));
}

// Trypsin on horse myoglobin (UniProt P68082). It cuts behind K and R but not before P; behind
// lysine 87 a proline stands.

const QString myoglobin =
    u"GLSDGEWQQVLNVWGKVEADIAGHGQEVLIRLFTGHPETLEKFDKFKHLKTEAEMKASEDLKKHGTVVLTALGGILKKK"
    "GHHEAELKPLAQSHATKHKIPIKYLEFISDAIIHVLHSKHPGDFGADAQGAMTKALELFRNDIAAKYKELGFQG"_s;

const QStringList trypticPeptides = {u"GLSDGEWQQVLNVWGK"_s,
                                     u"VEADIAGHGQEVLIR"_s,
                                     u"LFTGHPETLEK"_s,
                                     u"FDK"_s,
                                     u"FK"_s,
                                     u"HLK"_s,
                                     u"TEAEMK"_s,
                                     u"ASEDLK"_s,
                                     u"K"_s,
                                     u"HGTVVLTALGGILK"_s,
                                     u"K"_s,
                                     u"K"_s,
                                     u"GHHEAELKPLAQSHATK"_s,
                                     u"HK"_s,
                                     u"IPIK"_s,
                                     u"YLEFISDAIIHVLHSK"_s,
                                     u"HPGDFGADAQGAMTK"_s,
                                     u"ALELFR"_s,
                                     u"NDIAAK"_s,
                                     u"YK"_s,
                                     u"ELGFQG"_s};

/// Both sides of each border between the peptides, counted by hand and not by a rule.
QList<Range> trypticRanges()
{
    QList<Range> found = {{0, 0, 154}};
    for (const int border :
         {16, 31, 42, 45, 47, 50, 56, 62, 63, 77, 78, 79, 96, 98, 102, 118, 133, 139, 145, 147}) {
        found.append({0, 1, border + 1});
        found.append({0, border + 1, 154});
    }
    return found;
}

chem::MoleculeEntity myoglobinMolecule()
{
    const auto factory = chem::defaultChemicalFactory();
    const chem::Chain chain =
        chem::constructPeptideChain(u"myoglobin"_s, {}, myoglobin, factory.data());
    return chem::constructProteinFromChains(u"myoglobin"_s, {chain}, {}, {}, nullptr);
}

TEST(ClipsDigest, SequenceIsThatOfThePublishedMass)
{
    ASSERT_EQ(myoglobin.size(), 153);
    EXPECT_EQ(trypticPeptides.join(QString()), myoglobin);
    EXPECT_NEAR(myoglobinMolecule().averageMass(), 16951.5, 0.5); // apomyoglobin
}

TEST(ClipsDigest, WithTrypsinByLookahead)
{
    EXPECT_EQ(ranges(myoglobinMolecule(), byRule(u"[KR](?!P)"_s, {})), trypticRanges());
}

TEST(ClipsDigest, WithTrypsinByAnAfterExpression)
{
    EXPECT_EQ(ranges(myoglobinMolecule(), byRule({}, u"(?<=[KR])(?!P)"_s)), trypticRanges());
}

TEST(ClipsDigest, CutsBeforeProlineOnlyIfTheRuleAllowsIt)
{
    QList<Range> expected = trypticRanges();
    // Lysine 87: twelve borders come before it, two ranges each, and the first range.
    expected.insert(25, {0, 88, 154});
    expected.insert(25, {0, 1, 88});
    EXPECT_EQ(ranges(myoglobinMolecule(), byRule(u"[KR]"_s, {})), expected);
}

TEST(ClipsDigest, WithPlainTextBehindTheMatch)
{
    EXPECT_EQ(ranges(myoglobinMolecule(), byRule(u"[KR]"_s, u"P"_s)),
              QList<Range>({{0, 0, 154}, {0, 1, 88}, {0, 88, 154}}));
    EXPECT_EQ(ranges(myoglobinMolecule(), byRule(u"[KR]"_s, u"K"_s)), QList<Range>({{0, 0, 154},
                                                                                    {0, 1, 63},
                                                                                    {0, 63, 154},
                                                                                    {0, 1, 78},
                                                                                    {0, 78, 154},
                                                                                    {0, 1, 79},
                                                                                    {0, 79, 154}}));
}

TEST(ClipsDigest, SidesOfACutAreTheProteinLessItsTerminals)
{
    const chem::MoleculeEntity protein = myoglobinMolecule();
    const double water = chem::defaultChemicalFactory()->constructMolecule(u"H2O"_s).monoMass();
    const QList<chem::MoleculeEntity> clips =
        generateClips(protein, nullptr, byRule(u"[KR](?!P)"_s, {}));
    for (qsizetype i = 1; i + 1 < clips.size(); i += 2) {
        EXPECT_NEAR(clips[i].monoMass() + clips[i + 1].monoMass() + water, protein.monoMass(),
                    1e-6);
    }
}

} // namespace
