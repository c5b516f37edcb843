#include "Differences.h"
#include "ExtremeNumbers.h"
#include "RandomProteins.h"
#include "SmallMolecules.h"
#include "SumOfParts.h"
#include "TestPrinters.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <type_traits>

using namespace Qt::StringLiterals;
using namespace smallMolecules;
using chem::ChainFragmentDef;
using chem::ChainFragmenter;
using chem::Link;
using chem::Modification;
using fields::differences;

namespace {

static_assert(std::is_base_of_v<chem::Transformation, ChainFragmenter>);
static_assert(std::is_copy_constructible_v<ChainFragmenter>);
static_assert(std::is_move_constructible_v<ChainFragmenter>);
static_assert(!std::is_copy_assignable_v<ChainFragmenter>);
static_assert(!std::is_move_assignable_v<ChainFragmenter>);
static_assert(std::is_aggregate_v<ChainFragmentDef>);
static_assert(std::is_copy_assignable_v<ChainFragmentDef>);
static_assert(std::is_move_assignable_v<ChainFragmentDef>);

ChainFragmentDef blankEnds(int chain, int start, int end, const QString& label = QString())
{
    return {0, {label, chain, start, end}, 0};
}

chem::MoleculeEntity cut(const chem::MoleculeEntity& molecule,
                         const QList<ChainFragmentDef>& definitions)
{
    return ChainFragmenter(definitions).transform(molecule);
}

/// The codes of a chain's residues; the terminals have none and show as "-".
QString letters(const chem::Chain& chain)
{
    QString text;
    for (const chem::MoleculeEntity& residue : chain.residues())
        text += residue.code().isEmpty() ? u"-"_s : residue.code();
    return text;
}

/// Both ends of each link of a molecule.
QList<Link::Connection> connections(const chem::MoleculeEntity& molecule)
{
    QList<Link::Connection> found;
    const QList<Link> links = molecule.links();
    for (const Link& link : links)
        found.append(link.connection());
    return found;
}

double mass(QChar letter)
{
    return aminoAcid(letter).averageMass();
}

TEST(ChainFragmenter, WithoutDefinitionsLeavesTheModificationsAlone)
{
    const chem::MoleculeEntity molecule =
        moleculeOf({letterChain(u"AKC"_s)}, {Modification(group(u"CH2"_s, 14.0), {})},
                   {Link(2.0, {{0, 1}, {0, 2}})});
    const chem::MoleculeEntity result = cut(molecule, {});
    EXPECT_EQ(result.name(), u"fragment"_s);
    EXPECT_TRUE(result.chains().isEmpty());
    EXPECT_TRUE(result.links().isEmpty());
    EXPECT_EQ(result.averageMass(), 14.0);
    EXPECT_EQ(result.monoMass(), 7.0);
    EXPECT_EQ(result.formula().toString(), u"C1H2"_s);
}

/// Terminals around lysine and cysteine of AKCD: which are placed, and what they weigh.
struct TerminalCase
{
    const char* what;
    chem::MoleculeEntity start;
    chem::MoleculeEntity end;
    QString letters;
    double averageMass;
    double monoMass;
};

TEST(ChainFragmenter, PlacesTerminalsThatHaveAnAverageMassAndCountsAll)
{
    const chem::Molecule water = group(u"H2O"_s, 18.0);
    const chem::Molecule implied = chem::defaultChemicalFactory()->constructMolecule(u"H2O"_s);
    const chem::Molecule withoutMasses(formula(u"H2O"_s), 0.0, 0.0);
    const chem::Molecule withoutAverage(formula(u"X0"_s), 0.0, 3.0);
    const chem::MoleculeEntity modification = Modification(5.0, {});
    const QList<TerminalCase> cases = {
        {"nothing", nullptr, nullptr, u"KC"_s, 0.0, 0.0},
        {"no mass", 0, 0.0, u"KC"_s, 0.0, 0.0},
        {"none below zero", -0.0, -0.0, u"KC"_s, 0.0, 0.0},
        {"a modification, which has no mass as an entity", modification, modification, u"KC"_s, 0.0,
         0.0},
        {"water in front", water, 0, u"-KC"_s, 18.0, 9.0},
        {"water behind", 0, water, u"KC-"_s, 18.0, 9.0},
        {"a mass below zero", -1.0, 0, u"-KC"_s, -1.0, -1.0},
        {"a mass that follows from the formula", withoutMasses, 0, u"-KC"_s, implied.averageMass(),
         implied.monoMass()},
        {"a monoisotopic mass alone", withoutAverage, withoutAverage, u"KC"_s, 0.0, 6.0}};
    for (const TerminalCase& each : cases) {
        SCOPED_TRACE(each.what);
        const chem::MoleculeEntity result =
            cut(proteinOf(u"AKCD"_s), {{each.start, {{}, 0, 2, 4}, each.end}});
        EXPECT_EQ(letters(result.chains().first()), each.letters);
        EXPECT_DOUBLE_EQ(result.averageMass(), each.averageMass + mass(u'K') + mass(u'C'));
        EXPECT_DOUBLE_EQ(result.monoMass(), each.monoMass + (mass(u'K') + mass(u'C')) / 2);
    }
}

TEST(ChainFragmenter, CountsTheFormulasOfTerminalsPlacedOrNot)
{
    const chem::Molecule water = group(u"H2O"_s, 18.0);
    const chem::Molecule withoutAverage(formula(u"X0"_s), 0.0, 3.0);
    const chem::MoleculeEntity result =
        cut(proteinOf(u"AKCD"_s), {{water, {{}, 0, 2, 4}, withoutAverage}});
    EXPECT_EQ(result.formula().toString(), u"C4H8N2O3"_s);
    EXPECT_TRUE(result.formula().elementCountMap().contains(u"X"_s));
}

TEST(ChainFragmenter, PlacesATerminalWhoseMassIsNotANumber)
{
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const chem::MoleculeEntity result = cut(proteinOf(u"AK"_s), {{nan, {{}, 0, 1, 3}, nan}});
    EXPECT_EQ(letters(result.chains().first()), u"-AK-"_s);
    EXPECT_TRUE(std::isnan(result.averageMass()));
}

TEST(ChainFragmenter, RangeOverABuiltChainHasItsMasses)
{
    const auto factory = chem::defaultChemicalFactory();
    const chem::Chain chain =
        chem::constructPeptideChain(u"p"_s, {}, u"SAMPLEPEPTIDE"_s, factory.data());
    const chem::MoleculeEntity molecule = moleculeOf({chain});
    const chem::MoleculeEntity result =
        cut(molecule, {blankEnds(0, 0, static_cast<int>(chain.residues().size()))});
    EXPECT_EQ(result.averageMass(), molecule.averageMass());
    EXPECT_EQ(result.monoMass(), molecule.monoMass());
    EXPECT_EQ(result.formula().toString(), molecule.formula().toString());
    EXPECT_EQ(result.chains().first().residues(), chain.residues());
}

TEST(ChainFragmenter, PieceTakesTheTextsOfItsParentAndTheLocus)
{
    const chem::Chain parent("parent"_L1, u"P"_s, letterChain(u"AKC"_s).residues(),
                             chem::MoleculeType::Nucleotide, {u"old"_s, 7, 8, 9});
    const chem::MoleculeEntity result =
        cut(moleculeOf({letterChain(u"GG"_s), parent}), {blankEnds(1, 1, 3, u"label"_s)});
    const QList<chem::Chain> chains = result.chains();
    const chem::Chain& piece = chains.first();
    EXPECT_EQ(piece.name(), u"parent"_s);
    EXPECT_EQ(piece.code(), u"P"_s);
    EXPECT_EQ(piece.type(), chem::MoleculeType::Nucleotide);
    EXPECT_EQ(differences(piece.parentLocus(), chem::ParentChainLocus{u"label"_s, 1, 1, 3}), "");
}

TEST(ChainFragmenter, PiecesRunInTheOrderOfTheDefinitions)
{
    const chem::MoleculeEntity molecule =
        moleculeOf({letterChain(u"AKC"_s, u"first"_s), letterChain(u"GP"_s, u"second"_s)});
    const QList<chem::Chain> chains =
        cut(molecule, {blankEnds(1, 1, 3), blankEnds(0, 2, 4), blankEnds(0, 1, 2)}).chains();
    ASSERT_EQ(chains.size(), 3);
    EXPECT_EQ(letters(chains[0]), u"GP"_s);
    EXPECT_EQ(letters(chains[1]), u"KC"_s);
    EXPECT_EQ(letters(chains[2]), u"A"_s);
}

TEST(ChainFragmenter, OverlappingRangesCountTwice)
{
    const chem::MoleculeEntity result =
        cut(proteinOf(u"AKC"_s), {blankEnds(0, 1, 3), blankEnds(0, 2, 4)});
    EXPECT_EQ(letters(result.chains()[0]), u"AK"_s);
    EXPECT_EQ(letters(result.chains()[1]), u"KC"_s);
    EXPECT_EQ(result.averageMass(), mass(u'A') + 2 * mass(u'K') + mass(u'C'));
}

TEST(ChainFragmenter, KeepsCodeAndTypeAndReplacesTheName)
{
    const chem::MoleculeEntity result = cut(proteinOf(u"AKC"_s), {blankEnds(0, 1, 3)});
    EXPECT_EQ(result.name(), u"fragment"_s);
    EXPECT_EQ(result.code(), u"M"_s);
    EXPECT_EQ(result.type(), chem::MoleculeType::Protein);
    EXPECT_EQ(result.description(), QString());
}

TEST(ChainFragmenter, ResidueCarriesItsModificationAndHistoryAlong)
{
    const chem::MoleculeEntity modified =
        chem::Modify(Modification(14.0, {{0, 2}})).transform(proteinOf(u"AKC"_s));
    const chem::MoleculeEntity result = cut(modified, {blankEnds(0, 2, 4)});
    EXPECT_EQ(differences(residueAt(result, 0, 0), residueAt(modified, 0, 2)), "");
    EXPECT_EQ(result.averageMass(), mass(u'K') + 14.0 + mass(u'C'));
}

TEST(ChainFragmenter, KeepsTheMoleculesOwnModificationsWhateverTheRanges)
{
    const QList<Modification> modifications = {Modification(14.0, {{0, 1}, {0, 9}}),
                                               Modification(3.0, {})};
    const chem::MoleculeEntity result =
        cut(moleculeOf({letterChain(u"AKC"_s)}, modifications), {blankEnds(0, 3, 4)});
    EXPECT_EQ(result.modifications(), modifications);
    EXPECT_EQ(result.averageMass(), mass(u'C') + 17.0);
    EXPECT_EQ(result.monoMass(), mass(u'C') / 2 + 17.0);
}

TEST(ChainFragmenter, TotalsDoNotComeFromTheInputsTotals)
{
    const chem::MoleculeEntity result =
        cut(withOddTotals({letterChain(u"AKC"_s)}), {blankEnds(0, 1, 2)});
    EXPECT_EQ(result.averageMass(), mass(u'A'));
    EXPECT_EQ(result.monoMass(), mass(u'A') / 2);
    EXPECT_EQ(result.formula().toString(), u"C2H3NO"_s);
}

// Links. The numbers of the residues count one place for a start terminal in any case.

/// Links of a molecule of the chains ACKC and GC, the pieces that are cut out of it, and the links
/// of these.
struct LinkCase
{
    const char* what;
    QList<Link::Connection> links;
    QList<ChainFragmentDef> pieces;
    QList<Link::Connection> kept;
};

const QList<LinkCase> linkCases = {
    {"inside one piece", {{{0, 2}, {0, 4}}}, {blankEnds(0, 2, 5)}, {{{0, 1}, {0, 3}}}},
    {"the same with a start terminal",
     {{{0, 2}, {0, 4}}},
     {{18.0, {{}, 0, 2, 5}, 0}},
     {{{0, 1}, {0, 3}}}},
    {"between two pieces, in the order of the definitions",
     {{{0, 2}, {0, 4}}},
     {blankEnds(0, 4, 5), blankEnds(0, 1, 3)},
     {{{1, 2}, {0, 1}}}},
    {"between chains of the parent",
     {{{1, 2}, {0, 2}}},
     {blankEnds(0, 1, 3), blankEnds(1, 1, 3)},
     {{{1, 2}, {0, 2}}}},
    {"to a chain that is gone", {{{1, 2}, {0, 2}}}, {blankEnds(0, 1, 3), blankEnds(0, 1, 3)}, {}},
    {"with one end or none in a piece",
     {{{0, 2}, {0, 4}}, {{0, 4}, {0, 2}}, {{0, 4}, {0, 4}}},
     {blankEnds(0, 1, 4)},
     {}},
    {"up to the end of the range",
     {{{0, 4}, {0, 2}}, {{0, 2}, {0, 4}}, {{0, 1}, {0, 2}}, {{0, 2}, {0, 1}}, {{0, 2}, {0, 3}}},
     {blankEnds(0, 2, 4)},
     {{{0, 1}, {0, 2}}}},
    {"twice where the first end lies in two pieces",
     {{{0, 2}, {0, 4}}},
     {blankEnds(0, 1, 3), blankEnds(0, 2, 4), blankEnds(0, 4, 5)},
     {{{0, 2}, {2, 1}}, {{1, 1}, {2, 1}}}},
    {"to the first piece where the second end lies in two",
     {{{0, 4}, {0, 2}}},
     {blankEnds(0, 1, 3), blankEnds(0, 2, 4), blankEnds(0, 4, 5)},
     {{{2, 1}, {0, 2}}}},
    {"of two whole copies both end up in the first",
     {{{1, 1}, {1, 2}}},
     {blankEnds(1, 1, 3), blankEnds(1, 1, 3)},
     {{{0, 1}, {0, 2}}, {{1, 1}, {0, 2}}}},
    // The tests of both ends read the range and not the residues.
    {"also where no residue is",
     {{{0, 1}, {0, 50}}, {{4, 1}, {4, 2}}},
     {blankEnds(0, 1, 99), blankEnds(4, 0, 5)},
     {{{0, 1}, {0, 50}}, {{1, 2}, {1, 3}}}},
    {"at extreme places", // 1 + 2^31 + 1 in 32 bits
     {{{0, 1}, {0, 1}}},
     {blankEnds(0, lowest, highest)},
     {{{0, lowest + 2}, {0, lowest + 2}}}},
};

TEST(ChainFragmenterLinks, AreKeptBetweenThePiecesThatHaveTheirEnds)
{
    for (const LinkCase& each : linkCases) {
        SCOPED_TRACE(each.what);
        QList<Link> links;
        for (const Link::Connection& connection : each.links)
            links.append(Link(-2.0, connection));
        const chem::MoleculeEntity result =
            cut(moleculeOf({letterChain(u"ACKC"_s), letterChain(u"GC"_s)}, {}, links), each.pieces);
        EXPECT_EQ(connections(result), each.kept);
        const Sum sum = sumOfParts(result);
        EXPECT_EQ(result.averageMass(), sum.averageMass);
        EXPECT_EQ(result.monoMass(), sum.monoMass);
    }
}

TEST(ChainFragmenterLinks, NumberResiduesOneTooHighWithoutAStartTerminal)
{
    const chem::MoleculeEntity molecule = proteinOf(u"ACKC"_s);
    EXPECT_EQ(residueAt(cut(molecule, {{18.0, {{}, 0, 2, 5}, 0}}), 0, 1).code(), u"C"_s);
    EXPECT_EQ(residueAt(cut(molecule, {blankEnds(0, 2, 5)}), 0, 0).code(), u"C"_s);
}

TEST(ChainFragmenterLinks, KeepTheirOrderAndTheirEntity)
{
    const chem::NamedMolecule bridge = namedGroup(u"bridge"_s, u"B"_s, u"CO"_s, 28.0);
    const chem::MoleculeEntity molecule = moleculeOf(
        {letterChain(u"CCC"_s)}, {},
        {Link(bridge, {{0, 3}, {0, 1}}), Link(5.0, {{0, 0}, {0, 1}}), Link(3.0, {{0, 2}, {0, 2}})});
    const chem::MoleculeEntity result = cut(molecule, {blankEnds(0, 1, 4)});
    EXPECT_EQ(connections(result), QList<Link::Connection>({{{0, 3}, {0, 1}}, {{0, 2}, {0, 2}}}));
    EXPECT_EQ(result.links().first().entity().name(), u"bridge"_s);
    EXPECT_EQ(result.monoMass(), 1.5 * mass(u'C') + 14.0 + 3.0);
    EXPECT_EQ(result.formula().toString(), u"C7H9N3O4"_s);
}

// Definitions that reach outside.

struct OutsideCase
{
    ChainFragmentDef definition;
    QString letters;
};

TEST(ChainFragmenterOutside, TakesTheResiduesThatExist)
{
    const QList<OutsideCase> cases = {
        {blankEnds(0, 0, 6), u"-AKC-"_s},       {blankEnds(0, 3, 99), u"C-"_s},
        {blankEnds(0, 3, highest), u"C-"_s},    {blankEnds(0, -1, 2), u"-A"_s},
        {blankEnds(0, lowest, 2), u"-A"_s},     {blankEnds(0, lowest, highest), u"-AKC-"_s},
        {blankEnds(0, 5, 9), QString()},        {blankEnds(0, 99, 120), QString()},
        {blankEnds(0, highest, highest), {}},   {blankEnds(0, -9, -2), QString()},
        {blankEnds(0, lowest, lowest), {}},     {blankEnds(0, 2, 2), QString()},
        {blankEnds(0, 3, 1), QString()},        {blankEnds(0, highest, lowest), QString()},
        {blankEnds(0, lowest, lowest + 1), {}},
    };
    const chem::MoleculeEntity molecule = proteinOf(u"AKC"_s);
    for (const OutsideCase& each : cases) {
        const chem::ParentChainLocus& locus = each.definition.locus;
        SCOPED_TRACE(testing::Message() << locus.start << " to " << locus.end);
        const chem::MoleculeEntity result = cut(molecule, {each.definition});
        ASSERT_EQ(result.chains().size(), 1);
        EXPECT_EQ(letters(result.chains().first()), each.letters);
        EXPECT_EQ(differences(result.chains().first().parentLocus(), locus), "");
        EXPECT_EQ(result.chains().first().name(), u"chain"_s);
        EXPECT_EQ(result.averageMass(), moleculeOf({result.chains().first()}).averageMass());
    }
}

TEST(ChainFragmenterOutside, EmptyRangeGivesTheTerminalsAlone)
{
    const chem::MoleculeEntity result = cut(proteinOf(u"AKC"_s), {{18.0, {{}, 0, 3, 1}, 2.0}});
    EXPECT_EQ(letters(result.chains().first()), u"--"_s);
    EXPECT_EQ(result.averageMass(), 20.0);
}

TEST(ChainFragmenterOutside, MissingChainGivesTheTerminalsWithoutTextsOrType)
{
    for (const int chain : {1, 2, -1, lowest, highest}) {
        const chem::MoleculeEntity result =
            cut(proteinOf(u"AKC"_s), {{18.0, {u"label"_s, chain, 1, 3}, 2.0}});
        ASSERT_EQ(result.chains().size(), 1);
        const chem::Chain piece = result.chains().first();
        const chem::Chain expected({}, {}, {18.0, 2.0}, chem::MoleculeType::Unknown,
                                   {u"label"_s, chain, 1, 3});
        EXPECT_EQ(differences(piece, expected), "");
        EXPECT_EQ(result.averageMass(), 20.0);
    }
    EXPECT_EQ(cut(5.0, {blankEnds(0, 0, 1)}).chains().size(), 1);
    EXPECT_EQ(cut(5.0, {blankEnds(0, 0, 1)}).averageMass(), 0.0);
}

// The order of summation. 2^53 + 1 is no double: it rounds to 2^53, so that orders show.

constexpr double huge = 9007199254740992.0; // 2^53

chem::Molecule masses(double average, double mono)
{
    return {chem::ChemicalFormula(), average, mono};
}

TEST(ChainFragmenterSums, EndTerminalComesBeforeStartTerminal)
{
    // Before the second piece the totals are 1. (1 + 2^53) - 2^53 is 0, (1 - 2^53) + 2^53 is 1.
    const chem::MoleculeEntity molecule = moleculeOf({chainOf({masses(1.0, 1.0)})});
    const ChainFragmentDef second = {masses(-huge, huge), {{}, 0, 0, 0}, masses(huge, -huge)};
    const chem::MoleculeEntity result = cut(molecule, {blankEnds(0, 0, 1), second});
    EXPECT_EQ(result.averageMass(), 0.0);
    EXPECT_EQ(result.monoMass(), 1.0);
}

TEST(ChainFragmenterSums, TerminalsComeBeforeTheResiduesOfTheirPiece)
{
    // (2^53 - 2^53) + 1 is 1; the residue in between, or first, would be lost.
    const chem::MoleculeEntity molecule = moleculeOf({chainOf({masses(1.0, 1.0)})});
    const ChainFragmentDef piece = {masses(-huge, -huge), {{}, 0, 0, 1}, masses(huge, huge)};
    const chem::MoleculeEntity result = cut(molecule, {piece});
    EXPECT_EQ(result.averageMass(), 1.0);
    EXPECT_EQ(result.monoMass(), 1.0);
}

TEST(ChainFragmenterSums, ResiduesAreAddedToTheTotalsOneByOne)
{
    // ((2^53 + 1) + 1) + 1 is 2^53; 2^53 + (1 + 1 + 1), chain by chain, would be 2^53 + 4.
    const chem::MoleculeEntity one = masses(1.0, 1.0);
    const chem::MoleculeEntity molecule =
        moleculeOf({chainOf({masses(huge, huge)}), chainOf({one, one, one})});
    const chem::MoleculeEntity result = cut(molecule, {blankEnds(0, 0, 1), blankEnds(1, 0, 3)});
    EXPECT_EQ(result.averageMass(), huge);
    EXPECT_EQ(result.monoMass(), huge);
}

TEST(ChainFragmenterSums, LinksComeBehindAllResiduesAndBeforeModifications)
{
    // Residues 1, link 2^53, modification -2^53: (1 + 2^53) - 2^53 is 0.
    const QList<chem::Chain> chains = {chainOf({masses(1.0, 1.0)})};
    const Link link(masses(huge, huge), {{0, 0}, {0, 0}});
    const Modification modification(masses(-huge, -huge), {});
    const chem::MoleculeEntity result =
        cut(moleculeOf(chains, {modification}, {link}), {blankEnds(0, 0, 1)});
    EXPECT_EQ(result.averageMass(), 0.0);
    // Link -2^53 before modification 2^53: (1 - 2^53) + 2^53 is 1, the other way round 0.
    const chem::MoleculeEntity turned =
        cut(moleculeOf(chains, {Modification(masses(huge, huge), {})},
                       {Link(masses(-huge, -huge), {{0, 0}, {0, 0}})}),
            {blankEnds(0, 0, 1)});
    EXPECT_EQ(turned.averageMass(), 1.0);
    EXPECT_EQ(turned.monoMass(), 1.0);
}

TEST(ChainFragmenterSums, EqualASumWrittenOut)
{
    const auto factory = chem::defaultChemicalFactory();
    const chem::MoleculeEntity molecule =
        moleculeOf({chem::constructPeptideChain({}, {}, u"SAMPLER"_s, factory.data()),
                    chem::constructPeptideChain({}, {}, u"KWYFC"_s, factory.data())},
                   {Modification(factory->constructMolecule(u"HPO3"_s), {})},
                   {Link(factory->constructMolecule(u"H-2"_s), {{0, 2}, {1, 5}})});
    const chem::MoleculeEntity water = factory->constructMolecule(u"H2O"_s);
    const chem::MoleculeEntity proton = factory->constructMolecule(u"H"_s);
    const chem::MoleculeEntity result =
        cut(molecule, {{proton, {{}, 0, 1, 7}, water}, {water, {{}, 1, 2, 7}, proton}});

    QList<chem::MoleculeEntity> addends = {water, proton};
    for (int residue = 1; residue < 7; ++residue)
        addends.append(residueAt(molecule, 0, residue));
    addends += {proton, water};
    for (int residue = 2; residue < 7; ++residue)
        addends.append(residueAt(molecule, 1, residue));
    addends += {molecule.links().first().entity(), molecule.modifications().first().entity()};

    const Sum sum = sumOf(addends);
    EXPECT_EQ(result.averageMass(), sum.averageMass);
    EXPECT_EQ(result.monoMass(), sum.monoMass);
    EXPECT_EQ(result.formula().elementCountMap(), sum.counts);
}

TEST(ChainFragmenter, KeepsTheDefinitionsWhenTheCallerChangesHis)
{
    QList<ChainFragmentDef> definitions = {blankEnds(0, 1, 3)};
    const ChainFragmenter step(definitions);
    definitions.clear();
    EXPECT_EQ(step.transform(proteinOf(u"AKC"_s)).chains().size(), 1);
}

TEST(ChainFragmenter, KeepsItsDefinitionsWhenItIsMovedFrom)
{
    const chem::MoleculeEntity molecule = proteinOf(u"AKC"_s);
    ChainFragmenter step({blankEnds(0, 1, 3)});
    const ChainFragmenter moved(std::move(step));
    EXPECT_EQ(differences(step.transform(molecule), moved.transform(molecule)), "");
}

RC_GTEST_PROP(ChainFragmenterLaws, PiecesOfAChainWeighTheChain, ())
{
    const chem::MoleculeEntity protein = randomProteins::anyProtein();
    const chem::Chain chain = protein.chains().first();
    const int size = static_cast<int>(chain.residues().size());
    const int cut = *rc::gen::inRange(0, size + 1);
    const chem::MoleculeEntity nothing = 0;
    const auto pieceOf = [&](int start, int end) {
        return chem::ChainFragmenter({{nothing, {QString(), 0, start, end}, nothing}})
            .transform(protein);
    };
    const chem::MoleculeEntity left = pieceOf(0, cut);
    const chem::MoleculeEntity right = pieceOf(cut, size);
    const chem::MoleculeEntity whole = moleculeOf({chain});
    RC_ASSERT(left.averageMass() + right.averageMass() == whole.averageMass());
    RC_ASSERT(left.monoMass() + right.monoMass() == whole.monoMass());
    RC_ASSERT(QString(left.sequence() + right.sequence()) == whole.sequence());
}

RC_GTEST_PROP(ChainFragmenterLaws, WholeChainCutOutIsTheChain, ())
{
    const chem::MoleculeEntity protein = randomProteins::anyProtein();
    const QList<chem::Chain> chains = protein.chains();
    const int index = *rc::gen::inRange(0, static_cast<int>(chains.size()));
    const int size = static_cast<int>(chains[index].residues().size());
    const chem::MoleculeEntity nothing = nullptr;
    const chem::MoleculeEntity piece =
        chem::ChainFragmenter({{nothing, {QString(), index, 0, size}, nothing}}).transform(protein);
    RC_ASSERT(piece.averageMass() == moleculeOf({chains[index]}).averageMass());
    RC_ASSERT(piece.sequence() == moleculeOf({chains[index]}).sequence());
}

} // namespace
