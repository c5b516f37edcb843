#include "AnyClips.h"
#include "AnySteps.h"
#include "ClipRanges.h"
#include "ExtremeNumbers.h"
#include "MessageRecorder.h"
#include "RapidCheckChoices.h"
#include "SumOfParts.h"
#include "TestPrinters.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <type_traits>

using namespace Qt::StringLiterals;
using namespace smallMolecules;
using chem::ClipOptions;
using chem::generateClips;
using chem::Modification;
using clipRanges::Depths;
using clipRanges::Range;
using clipRanges::rangesOf;
using fields::differences;

namespace {

static_assert(std::is_default_constructible_v<ClipOptions>);
static_assert(std::is_copy_assignable_v<ClipOptions>);
static_assert(std::is_move_assignable_v<ClipOptions>);
static_assert(std::is_aggregate_v<ClipOptions::ResidueBeforeAfter>);

ClipOptions byRule(const QString& before, const QString& after)
{
    return ClipOptions::createClipByResidue({before}, {after});
}

/// Options of each kind that clips.
const QList<ClipOptions> clippingOptions = {ClipOptions::createClipAll(),
                                            ClipOptions::createClipByDepth(2, 1, 2, 2),
                                            byRule(u"[KR]"_s, {})};

/// The ranges that one rule adds on a chain of these letters, behind the first range.
QList<Range> cuts(const QString& letters, const QString& before, const QString& after)
{
    QList<Range> found = rangesOf(proteinOf(letters), byRule(before, after));
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

TEST(Clips, NoClippingGivesTheMoleculeItself)
{
    const chem::MoleculeEntity molecule =
        chem::Modify(14.0).transform(moleculeOf({letterChain(u"AKC"_s), letterChain(u"G"_s)}));
    for (const ClipOptions& options : {ClipOptions(), ClipOptions::createNoClipping()}) {
        const QList<chem::MoleculeEntity> clips = generateClips(molecule, nullptr, options);
        ASSERT_EQ(clips.size(), 1);
        EXPECT_EQ(differences(clips.first(), molecule), "");
    }
}

TEST(Clips, MoleculeWithoutChainsGivesNoneUnlessNothingIsClipped)
{
    for (const chem::MoleculeEntity& molecule : {moleculeOf({}), chem::MoleculeEntity(5.0)}) {
        for (const ClipOptions& options : clippingOptions)
            EXPECT_TRUE(generateClips(molecule, nullptr, options).isEmpty());
        EXPECT_EQ(generateClips(molecule, nullptr, ClipOptions()).size(), 1);
    }
}

TEST(Clips, AllTrimsEachEndDownToOneResidue)
{
    EXPECT_EQ(rangesOf(proteinOf(u"AKCD"_s), ClipOptions::createClipAll()),
              QList<Range>(
                  {{0, 1, 5}, {0, 2, 5}, {0, 3, 5}, {0, 4, 5}, {0, 1, 4}, {0, 1, 3}, {0, 1, 2}}));
}

TEST(Clips, OfBothEndsComeBehindTheSingleOnesOfAllChains)
{
    const chem::MoleculeEntity molecule =
        moleculeOf({letterChain(u"AKC"_s), letterChain(u"GPG"_s)});
    EXPECT_EQ(rangesOf(molecule, ClipOptions::createClipByDepth(1, 1, 1, 1)),
              QList<Range>({{0, 1, 4},
                            {0, 2, 4},
                            {0, 1, 3},
                            {1, 1, 4},
                            {1, 2, 4},
                            {1, 1, 3},
                            {0, 2, 3},
                            {1, 2, 3}}));
}

TEST(Clips, ByAnyDepthsAreTheTrimsThatLeaveAResidue)
{
    const QList<int> depths = {lowest, -1, 0, 1, 2, 3, 4, highest};
    for (const int residues : {1, 3, 4}) {
        const chem::MoleculeEntity molecule = proteinOf(QString(residues, u'A'));
        EXPECT_EQ(rangesOf(molecule, ClipOptions::createClipAll()),
                  clipRanges::trims({residues}, {highest, highest, 0, 0}));
        for (const int start : depths) {
            for (const int end : depths) {
                for (const Depths& each : {Depths{start, end, 0, 0}, Depths{0, 0, start, end},
                                           Depths{end, 1, start, end}}) {
                    EXPECT_EQ(rangesOf(molecule, each.options()),
                              clipRanges::trims({residues}, each))
                        << residues << ": " << start << ", " << end;
                }
            }
        }
    }
}

TEST(Clips, OfAChainTooShortForTerminalsAreEmpty)
{
    for (int size = 0; size <= 2; ++size) {
        const chem::MoleculeEntity molecule = chainOfSize(size);
        const QList<Range> whole = {{0, 1, size - 1}};
        EXPECT_EQ(rangesOf(molecule, ClipOptions::createClipAll()), whole);
        EXPECT_EQ(rangesOf(molecule, byRule(u"[AB]"_s, {})), QList<Range>({{0, 0, size - 1}}));
        for (const int depth : {lowest, 0, 1, highest}) {
            const auto clips = generateClips(
                molecule, nullptr, ClipOptions::createClipByDepth(depth, depth, depth, depth));
            EXPECT_EQ(rangesOf(clips), whole);
            EXPECT_TRUE(clips.first().chains().first().residues().isEmpty());
            EXPECT_EQ(clips.first().averageMass(), 0.0);
        }
    }
}

TEST(Clips, OfAChainOfThreeEntriesHoldTheOneInBetween)
{
    const chem::MoleculeEntity molecule = chainOfSize(3);
    EXPECT_EQ(
        rangesOf(molecule, ClipOptions::createClipByDepth(highest, highest, highest, highest)),
        QList<Range>({{0, 1, 2}}));
    EXPECT_EQ(rangesOf(molecule, byRule(u"B"_s, {})), QList<Range>({{0, 0, 2}, {0, 1, 2}}));
    EXPECT_EQ(rangesOf(molecule, byRule(u"A|C"_s, {})), QList<Range>({{0, 0, 2}}));
}

TEST(Clips, ByRuleOnNoTextMatchItsEmptyMatches)
{
    // The text of these chains is empty: p is 0, which is also its length.
    for (int size = 0; size <= 2; ++size) {
        const chem::MoleculeEntity molecule = chainOfSize(size);
        EXPECT_EQ(rangesOf(molecule, byRule(u"^"_s, {})),
                  QList<Range>({{0, 0, size - 1}, {0, 1, 1}}));
        EXPECT_EQ(rangesOf(molecule, byRule({}, u"$"_s)),
                  QList<Range>({{0, 0, size - 1}, {0, 1, size - 1}}));
    }
}

TEST(Clips, EmptyTextBehindSkipsNoMatchWhetherNullOrNot)
{
    for (const QString& after : {QString(), u""_s, u"x"_s.left(0)}) {
        EXPECT_EQ(rangesOf(chainOfSize(2), byRule(u"^"_s, after)),
                  QList<Range>({{0, 0, 1}, {0, 1, 1}}));
        EXPECT_EQ(cuts(u"AKC"_s, u"K"_s, after), QList<Range>({{0, 1, 3}, {0, 3, 4}}));
    }
}

/// A rule, a text and the sides of its cuts.
struct CutCase
{
    const char* what;
    QString letters;
    QString before;
    QString after;
    QList<Position> sides;
};

const QList<CutCase> cutCases = {
    {"before alone cuts behind its matches", u"AKC"_s, u"K"_s, {}, {{1, 3}, {3, 4}}},
    {"a class", u"AKRC"_s, u"[KR]"_s, {}, {{1, 3}, {3, 5}, {1, 4}, {4, 5}}},
    {"before cuts where the text stands behind", u"AKC"_s, u"K"_s, u"C"_s, {{1, 3}, {3, 4}}},
    {"and not elsewhere", u"AKC"_s, u"K"_s, u"P"_s, {}},
    {"one of three", u"KCKPKC"_s, u"K"_s, u"P"_s, {{1, 4}, {4, 7}}},
    {"a text of two letters", u"KPGKPP"_s, u"K"_s, u"PP"_s, {{1, 5}, {5, 7}}},
    {"the letters end too early", u"AKP"_s, u"K"_s, u"PP"_s, {}},
    {"no letter stands behind the last", u"AK"_s, u"K"_s, u"K"_s, {}},
    {"after beside before is plain text", u"AKC"_s, u"K"_s, u"[CD]"_s, {}},
    {"a dot is a dot", u"AKC"_s, u"K"_s, u"."_s, {}},
    {"a dot that stands there", u"AK.C"_s, u"K"_s, u"."_s, {{1, 3}, {3, 5}}},
    {"a bracket that stands there", u"K[C"_s, u"K"_s, u"["_s, {{1, 2}, {2, 4}}},
    {"case counts behind", u"AKC"_s, u"K"_s, u"c"_s, {}},
    {"case counts", u"AKC"_s, u"k"_s, {}, {}},
    {"after alone is an expression and cuts before", u"AKC"_s, {}, u"[KP]"_s, {{1, 2}, {2, 4}}},
    {"no left side at the start", u"KAK"_s, {}, u"K"_s, {{1, 4}, {1, 3}, {3, 4}}},
    {"no right side at the end", u"AK"_s, u"K"_s, {}, {{1, 3}}},
    {"the same match of an after has both", u"AK"_s, {}, u"K"_s, {{1, 2}, {2, 3}}},
    {"an empty left side", u"AK"_s, u"^"_s, {}, {{1, 1}, {1, 3}}},
    {"an empty left side with after", u"AK"_s, u"^"_s, u"A"_s, {{1, 1}, {1, 3}}},
    {"another after", u"AK"_s, u"^"_s, u"K"_s, {}},
    {"an empty right side", u"AK"_s, {}, u"$"_s, {{1, 3}, {3, 3}}},
    {"empty matches of before", u"AK"_s, u"x*"_s, {}, {{1, 1}, {1, 3}, {1, 2}, {2, 3}, {1, 3}}},
    {"empty matches of after", u"AK"_s, {}, u"x*"_s, {{1, 3}, {1, 2}, {2, 3}, {1, 3}, {3, 3}}},
    {"matches do not overlap", u"KKKA"_s, u"KK"_s, {}, {{1, 3}, {3, 5}}},
    {"one match of two letters", u"AKKC"_s, u"K+"_s, {}, {{1, 4}, {4, 5}}},
    {"one match of two letters, before it", u"AKKC"_s, {}, u"K+"_s, {{1, 2}, {2, 5}}},
    {"lookahead sees the text", u"KPKA"_s, u"K(?!P)"_s, {}, {{1, 4}, {4, 5}}},
    {"lookbehind sees the text", u"KPKA"_s, u"(?<=P)K"_s, {}, {{1, 4}, {4, 5}}},
    {"both", u"KPKA"_s, {}, u"(?<=K)(?!P)"_s, {{1, 4}, {4, 5}}},
    {"a surrogate pair is two residues", u"👍A"_s, u"."_s, {}, {{1, 3}, {3, 4}, {1, 4}}},
    {"a pair as text", u"A👍"_s, u"A"_s, u"👍"_s, {{1, 2}, {2, 4}}},
};

TEST(Clips, OfOneRuleAreBothSidesOfItsCuts)
{
    for (const CutCase& each : cutCases) {
        QList<Range> expected;
        for (const auto& [start, end] : each.sides)
            expected.append({0, start, end});
        EXPECT_EQ(cuts(each.letters, each.before, each.after), expected) << each.what;
    }
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

TEST(Clips, ChainWithACodeOfAnotherLengthGivesTheFirstRangeAlone)
{
    for (const QString& code : {QString(), u"Me"_s, u"👍"_s}) {
        const chem::MoleculeEntity molecule =
            moleculeOf({chainOf({startTerminal(), aminoAcid(u'K'), aminoAcid(code, u"C"_s, 12.0),
                                 aminoAcid(u'K'), endTerminal()}),
                        letterChain(u"KA"_s)});
        EXPECT_EQ(rangesOf(molecule, byRule(u"K"_s, {})),
                  QList<Range>({{0, 0, 4}, {1, 0, 3}, {1, 1, 2}, {1, 2, 3}}));
    }
}

TEST(Clips, CodesOfTheTerminalsDoNotMatter)
{
    const chem::MoleculeEntity molecule =
        moleculeOf({chainOf({aminoAcid(u"Start"_s, u"H"_s, 1.0), aminoAcid(u'A'), aminoAcid(u'K'),
                             aminoAcid(u"K"_s, u"OH"_s, 17.0)})});
    EXPECT_EQ(rangesOf(molecule, byRule(u"K"_s, {})), QList<Range>({{0, 0, 3}, {0, 1, 3}}));
}

TEST(Clips, LoneSurrogateInTheTextMatchesNothing)
{
    const MessageRecorder recorder;
    const QString high(QChar(0xD83D));
    EXPECT_TRUE(cuts(high + u"KA"_s, u"K"_s, {}).isEmpty());
    EXPECT_TRUE(cuts(u"KA"_s + high, {}, u"A"_s).isEmpty());
    EXPECT_TRUE(MessageRecorder::messages().isEmpty());
}

TEST(Clips, EachIsThePieceOfItsRangeWithTheTextsOfItsParents)
{
    const chem::MoleculeEntity molecule =
        moleculeOf({letterChain(u"AKC"_s, u"left"_s), letterChain(u"GP"_s, u"right"_s)},
                   {Modification(14.0, {{0, 1}, {1, 1}})}, {chem::Link(-2.0, {{0, 1}, {0, 3}})});
    for (const ClipOptions& options : clippingOptions) {
        const QList<chem::MoleculeEntity> clips = generateClips(molecule, nullptr, options);
        for (const chem::MoleculeEntity& clip : clips) {
            const chem::ParentChainLocus locus = clip.chains().first().parentLocus();
            EXPECT_EQ(locus.label, QString());
            EXPECT_EQ(differences(clip, chem::ChainFragmenter({{0, locus, 0}}).transform(molecule)),
                      "");
        }
    }
}

TEST(Clips, DoNotUseTheFactory)
{
    const chem::MoleculeEntity molecule = proteinOf(u"AKC"_s);
    const auto factory = chem::defaultChemicalFactory();
    EXPECT_EQ(differences(generateClips(molecule, factory.data(), byRule(u"K"_s, {})),
                          generateClips(molecule, nullptr, byRule(u"K"_s, {}))),
              "");
}

// Trypsin on horse myoglobin (UniProt P68082). It cuts behind K and R but not before P; behind
// lysine 87 a proline stands.

const QStringList trypticPeptides =
    u"GLSDGEWQQVLNVWGK VEADIAGHGQEVLIR LFTGHPETLEK FDK FK HLK TEAEMK ASEDLK K HGTVVLTALGGILK K K "
    "GHHEAELKPLAQSHATK HK IPIK YLEFISDAIIHVLHSK HPGDFGADAQGAMTK ALELFR NDIAAK YK ELGFQG"_s.split(
        u' ');
constexpr int behindMyoglobin = 154;

/// Both sides of each border between the peptides, counted and not found by a rule.
QList<Range> trypticRanges()
{
    QList<Range> found = {{0, 0, behindMyoglobin}};
    int border = 1;
    for (qsizetype i = 0; i + 1 < trypticPeptides.size(); ++i) {
        border += static_cast<int>(trypticPeptides[i].size());
        found += {{0, 1, border}, {0, border, behindMyoglobin}};
    }
    return found;
}

chem::MoleculeEntity myoglobin()
{
    const auto factory = chem::defaultChemicalFactory();
    const chem::Chain chain = chem::constructPeptideChain(
        u"myoglobin"_s, {}, trypticPeptides.join(QString()), factory.data());
    return chem::constructProteinFromChains(u"myoglobin"_s, {chain}, {}, {}, nullptr);
}

TEST(ClipsDigest, SequenceHasThePublishedMass)
{
    EXPECT_EQ(trypticRanges().last().start, 148);         // the last peptide of six residues
    EXPECT_NEAR(myoglobin().averageMass(), 16951.5, 0.5); // apomyoglobin
}

TEST(ClipsDigest, WithTrypsinByLookaheadOrByAnAfterExpression)
{
    EXPECT_EQ(rangesOf(myoglobin(), byRule(u"[KR](?!P)"_s, {})), trypticRanges());
    EXPECT_EQ(rangesOf(myoglobin(), byRule({}, u"(?<=[KR])(?!P)"_s)), trypticRanges());
}

TEST(ClipsDigest, CutsBeforeProlineOnlyIfTheRuleAllowsIt)
{
    QList<Range> expected = trypticRanges();
    // Lysine 87: twelve borders come before it, two ranges each, and the first range.
    expected.insert(25, {0, 88, behindMyoglobin});
    expected.insert(25, {0, 1, 88});
    EXPECT_EQ(rangesOf(myoglobin(), byRule(u"[KR]"_s, {})), expected);
}

TEST(ClipsDigest, SidesOfACutAreTheProteinLessItsTerminals)
{
    const chem::MoleculeEntity protein = myoglobin();
    const double water = chem::defaultChemicalFactory()->constructMolecule(u"H2O"_s).monoMass();
    const QList<chem::MoleculeEntity> clips =
        generateClips(protein, nullptr, byRule(u"[KR](?!P)"_s, {}));
    for (qsizetype i = 1; i + 1 < clips.size(); i += 2) {
        EXPECT_NEAR(clips[i].monoMass() + clips[i + 1].monoMass() + water, protein.monoMass(),
                    1e-6);
    }
}

// Laws.

RapidCheckChoices choices;

RC_GTEST_PROP(ClipLaws, ClipsByRuleAreTheCutsThatAReaderFinds, ())
{
    const QStringList texts = anyClips::anyTexts(&choices);
    const anyClips::Rules rules = anyClips::anyRules(&choices);
    RC_ASSERT(differences(rangesOf(anyClips::moleculeOfTexts(texts), rules.options()),
                          anyClips::rangesByMatchers(rules, texts)) == "");
}

RC_GTEST_PROP(ClipLaws, ClipsByDepthAreTheTrimsThatLeaveAResidue, ())
{
    const QStringList texts = anyClips::anyTexts(&choices);
    QList<int> residueCounts;
    for (const QString& text : texts)
        residueCounts.append(static_cast<int>(text.size()));
    const auto depth = rc::gen::oneOf(rc::gen::inRange(-2, 8), rc::gen::arbitrary<int>());
    const Depths depths = {*depth, *depth, *depth, *depth};
    RC_ASSERT(differences(rangesOf(anyClips::moleculeOfTexts(texts), depths.options()),
                          clipRanges::trims(residueCounts, depths)) == "");
}

RC_GTEST_PROP(ClipLaws, ClipsOfAnyMoleculeAreSumsOfTheirParts, ())
{
    const chem::MoleculeEntity molecule = anySteps::anyMolecule(&choices);
    const fields::Fields before = fields::fieldsOf(molecule);
    for (const ClipOptions& options : clippingOptions) {
        const QList<chem::MoleculeEntity> clips = generateClips(molecule, nullptr, options);
        for (const chem::MoleculeEntity& clip : clips) {
            RC_ASSERT(hasTotalsOfItsParts(clip));
            RC_ASSERT(historyTypes(clip) == QList<int>({7}));
            RC_ASSERT(differences(stateBefore(clip, 0), before) == "");
        }
    }
    RC_ASSERT(differences(molecule, before) == "");
}

} // namespace
