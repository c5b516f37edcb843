#include "RandomProteins.h"
#include "SmallMolecules.h"
#include "TestPrinters.h"

#include <gtest/gtest.h>

#include <limits>
#include <type_traits>

using namespace Qt::StringLiterals;
using namespace smallMolecules;
using chem::Modification;
using chem::Modify;
using chem::Unmodify;

namespace {

static_assert(std::is_copy_assignable_v<Modify> && std::is_move_assignable_v<Modify>);
static_assert(std::is_copy_assignable_v<Unmodify> && std::is_move_assignable_v<Unmodify>);
static_assert(std::is_constructible_v<Modify, chem::MoleculeEntity>);
static_assert(std::is_constructible_v<Modify, const Modification&>);
static_assert(std::is_constructible_v<Unmodify, Modification>);
// What to take off must be named with its places.
static_assert(!std::is_constructible_v<Unmodify, chem::MoleculeEntity>);

constexpr int lowest = std::numeric_limits<int>::min();
constexpr int highest = std::numeric_limits<int>::max();

const QString noChain = u"Attemt to put modification on non-existing chain"_s;
const QString noResidue = u"Attemt to put modification on non-existing residue"_s;
const QString noChainToTakeFrom = u"Attemt to remove modification from non-existing chain"_s;
const QString noResidueToTakeFrom = u"Attemt to remove modification from non-existing residue"_s;
const QString notFound = u"Could not remove specified modification"_s;

chem::NamedMolecule phospho()
{
    return namedGroup(u"phosphorylation"_s, u"p"_s, u"HPO3"_s, 80.0);
}

Modification phosphoAt(const QList<Position>& places)
{
    return {phospho(), places};
}

const QList<Position> twoPlaces = {{0, 1}, {0, 2}};
const QList<Position> twoPlacesTurned = {{0, 2}, {0, 1}};

TEST(Modify, AtOnePlaceGoesOntoTheResidueAlone)
{
    const chem::MoleculeEntity molecule =
        moleculeOf({letterChain(u"ASK"_s)}, {Modification(3.0, {})});
    const chem::MoleculeEntity result = Modify(phosphoAt({{0, 2}})).transform(molecule);

    EXPECT_EQ(result.modifications(), molecule.modifications());
    const QList<Modification> onResidue = residueAt(result, 0, 2).modifications();
    ASSERT_EQ(onResidue.size(), 1);
    EXPECT_EQ(onResidue.first(), phosphoAt({}));
    EXPECT_EQ(onResidue.first().entity().name(), u"phosphorylation"_s);
}

TEST(Modify, AtOnePlaceRaisesResidueAndTotalsAlike)
{
    const chem::MoleculeEntity molecule = proteinOf(u"ASK"_s);
    const chem::MoleculeEntity result = Modify(phosphoAt({{0, 2}})).transform(molecule);
    const chem::MoleculeEntity residue = residueAt(result, 0, 2);

    EXPECT_EQ(result.averageMass(), molecule.averageMass() + 80.0);
    EXPECT_EQ(result.monoMass(), molecule.monoMass() + 40.0);
    EXPECT_EQ(result.formula().toString(), u"C6H12N3O7P"_s);
    EXPECT_EQ(residue.averageMass(), aminoAcid(u'S').averageMass() + 80.0);
    EXPECT_EQ(residue.monoMass(), aminoAcid(u'S').monoMass() + 40.0);
    EXPECT_EQ(residue.formula().toString(), u"C2H4NO4P"_s);
    EXPECT_EQ(moleculeOf(result.chains()).averageMass(), result.averageMass());
    EXPECT_EQ(moleculeOf(result.chains()).monoMass(), result.monoMass());
}

TEST(Modify, AtOnePlaceMakesTheResidueAStructuredMoleculeWithAHistory)
{
    const chem::MoleculeEntity result = Modify(phosphoAt({{0, 2}})).transform(proteinOf(u"ASK"_s));
    const chem::MoleculeEntity residue = residueAt(result, 0, 2);
    EXPECT_EQ(residue.type(), chem::MoleculeType::AminoAcid);
    EXPECT_EQ(residue.name(), u"residue S"_s);
    EXPECT_EQ(residue.code(), u"S"_s);
    EXPECT_EQ(historyTypes(residue), QList<int>({0}));
    EXPECT_EQ(describe(stateBefore(residue, 0)), describe(aminoAcid(u'S')));
    EXPECT_EQ(result.sequence(), u"AS[]K"_s);
}

TEST(Modify, AtOnePlaceLeavesTheOtherResiduesAndChainsAlone)
{
    const chem::MoleculeEntity molecule =
        moleculeOf({letterChain(u"AS"_s, u"first"_s), letterChain(u"GG"_s, u"second"_s)});
    const chem::MoleculeEntity result = Modify(phosphoAt({{1, 1}})).transform(molecule);
    EXPECT_EQ(result.chains()[0], molecule.chains()[0]);
    for (int residue : {0, 2, 3})
        EXPECT_EQ(describe(residueAt(result, 1, residue)),
                  describe(residueAt(molecule, 1, residue)));
    EXPECT_EQ(result.chains()[1].name(), u"second"_s);
    EXPECT_EQ(result.chains()[1].code(), u"c"_s);
    EXPECT_EQ(result.chains()[1].type(), chem::MoleculeType::Peptide);
}

TEST(Modify, CountsPlacesFromTheTerminal)
{
    const chem::MoleculeEntity result = Modify(phosphoAt({{0, 0}})).transform(proteinOf(u"ASK"_s));
    EXPECT_EQ(residueAt(result, 0, 0).name(), u"start"_s);
    EXPECT_EQ(residueAt(result, 0, 0).averageMass(), 81.0);
}

TEST(Modify, AtOnePlaceTakesTheParentLocusOfItsChainAway)
{
    const chem::MoleculeEntity pieces =
        chem::ChainFragmenter({{0, {u"a"_s, 0, 1, 3}, 0}, {0, {u"b"_s, 0, 2, 4}, 0}})
            .transform(proteinOf(u"ASK"_s));
    const QList<chem::Chain> chains = Modify(phosphoAt({{0, 1}})).transform(pieces).chains();
    EXPECT_EQ(describe(chains[0].parentLocus()), u":0:0:0"_s);
    EXPECT_EQ(describe(chains[1].parentLocus()), u"b:0:2:4"_s);
}

TEST(Modify, WithoutAPlaceGoesIntoTheMoleculesOwnList)
{
    const chem::MoleculeEntity molecule =
        moleculeOf({letterChain(u"ASK"_s)}, {Modification(3.0, {})});
    const chem::MoleculeEntity result = Modify(phospho()).transform(molecule);
    EXPECT_EQ(result.modifications(), QList({Modification(3.0, {}), phosphoAt({})}));
    EXPECT_EQ(result.chains(), molecule.chains());
    EXPECT_EQ(result.averageMass(), molecule.averageMass() + 80.0);
    EXPECT_EQ(result.monoMass(), molecule.monoMass() + 40.0);
}

TEST(Modify, AtOpenPlacesKeepsTheCandidatesAndTouchesNoResidue)
{
    const chem::MoleculeEntity molecule = proteinOf(u"ASK"_s);
    const chem::MoleculeEntity result = Modify(phosphoAt(twoPlaces)).transform(molecule);
    EXPECT_EQ(result.modifications(), QList({phosphoAt(twoPlaces)}));
    EXPECT_EQ(describe(residueAt(result, 0, 1)), describe(residueAt(molecule, 0, 1)));
    EXPECT_EQ(describe(residueAt(result, 0, 2)), describe(residueAt(molecule, 0, 2)));
    EXPECT_EQ(result.averageMass(), molecule.averageMass() + 80.0);
}

TEST(Modify, AtOpenPlacesTestsNoBounds)
{
    const Modification modification = phosphoAt({{99, 0}, {0, 99}});
    const chem::MoleculeEntity result = Modify(modification).transform(proteinOf(u"ASK"_s));
    EXPECT_EQ(result.modifications(), QList({modification}));
}

TEST(Modify, OfAnAminoAcidKeepsItsTypeAndTexts)
{
    const chem::MoleculeEntity result = Modify(phosphoAt({})).transform(aminoAcid(u'S'));
    EXPECT_EQ(result.type(), chem::MoleculeType::AminoAcid);
    EXPECT_EQ(result.name(), u"residue S"_s);
    EXPECT_EQ(result.code(), u"S"_s);
    EXPECT_EQ(result.modifications(), QList({phosphoAt({})}));
    EXPECT_EQ(historyTypes(result), QList<int>({0}));
    EXPECT_TRUE(result.chains().isEmpty());
}

TEST(Modify, AddsToTheTotalsAndDoesNotSumAgain)
{
    // Stored totals that do not belong to the parts: a new sum would lose them.
    chem::StructuredMolecule odd;
    odd.averageMass = 1000.0;
    odd.monoMass = 999.0;
    odd.formula = formula(u"C9"_s);
    odd.chains = {letterChain(u"ASK"_s)};
    for (const Modification& modification : {phosphoAt({{0, 1}}), phosphoAt({})}) {
        const chem::MoleculeEntity result = Modify(modification).transform(odd);
        EXPECT_EQ(result.averageMass(), 1080.0);
        EXPECT_EQ(result.monoMass(), 1039.0);
        EXPECT_EQ(result.formula().toString(), u"C9H1O3P"_s);
    }
}

TEST(Modify, AddsBitForBit)
{
    // 0.1 + 0.2 and 0.3 + 0.6 differ in the last bit from the nearest doubles of 0.3 and 0.9.
    chem::StructuredMolecule molecule;
    molecule.averageMass = 0.1;
    molecule.monoMass = 0.3;
    const chem::MoleculeEntity result =
        Modify(chem::Molecule(chem::ChemicalFormula(), 0.2, 0.6)).transform(molecule);
    EXPECT_EQ(result.averageMass(), 0.30000000000000004);
    EXPECT_EQ(result.monoMass(), 0.8999999999999999);
}

TEST(Modify, StacksOnOneResidue)
{
    chem::MoleculeEntity molecule = proteinOf(u"ASK"_s);
    molecule = Modify(phosphoAt({{0, 2}})).transform(molecule);
    molecule = Modify(Modification(14.0, {{0, 2}})).transform(molecule);
    const chem::MoleculeEntity residue = residueAt(molecule, 0, 2);
    EXPECT_EQ(residue.modifications(), QList({phosphoAt({}), Modification(14.0, {})}));
    EXPECT_EQ(historyTypes(residue), QList<int>({0, 0}));
}

TEST(Modify, LeavesItsInputAlone)
{
    const chem::MoleculeEntity molecule = proteinOf(u"ASK"_s);
    const QString before = describe(molecule);
    const chem::MoleculeEntity result = Modify(phosphoAt({{0, 2}})).transform(molecule);
    EXPECT_EQ(describe(molecule), before);
    EXPECT_EQ(describe(stateBefore(result, 0)), before);
}

/// A place and what the two steps say to it, on a molecule of three chains of five residues each.
struct PlaceCase
{
    Position place;
    QString modifyMessage;
    QString unmodifyMessage;
};

const QList<PlaceCase> refusedPlaces = {
    {{4, 0}, noChain, noChainToTakeFrom},
    {{5, 0}, noChain, noChainToTakeFrom},
    {{5, 99}, noChain, noChainToTakeFrom}, // the chain is named first
    {{5, -1}, noChain, noChainToTakeFrom},
    {{highest, highest}, noChain, noChainToTakeFrom},
    {{highest, lowest}, noChain, noChainToTakeFrom},
    {{0, 6}, noResidue, noResidueToTakeFrom},
    {{2, 7}, noResidue, noResidueToTakeFrom},
    {{1, highest}, noResidue, noResidueToTakeFrom},
};

chem::MoleculeEntity threeChains()
{
    return moleculeOf({letterChain(u"ASK"_s), letterChain(u"GGG"_s), letterChain(u"PPP"_s)});
}

TEST(Modify, NamesThePlaceThatCannotExist)
{
    const chem::MoleculeEntity molecule = threeChains();
    const QString before = describe(molecule);
    for (const PlaceCase& each : refusedPlaces) {
        SCOPED_TRACE(describe(each.place).toStdString());
        EXPECT_EQ(thrownMessage(Modify(phosphoAt({each.place})), molecule), each.modifyMessage);
        EXPECT_EQ(describe(molecule), before);
    }
}

TEST(Unmodify, NamesThePlaceThatCannotExist)
{
    const chem::MoleculeEntity molecule = threeChains();
    const QString before = describe(molecule);
    for (const PlaceCase& each : refusedPlaces) {
        SCOPED_TRACE(describe(each.place).toStdString());
        EXPECT_EQ(thrownMessage(Unmodify(phosphoAt({each.place})), molecule), each.unmodifyMessage);
        EXPECT_EQ(describe(molecule), before);
    }
}

TEST(Modify, NamesThePlaceOnAMoleculeWithoutChains)
{
    EXPECT_EQ(thrownMessage(Modify(phosphoAt({{1, 0}})), moleculeOf({})), noChain);
    EXPECT_EQ(thrownMessage(Modify(phosphoAt({{1, 0}})), 5.0), noChain);
    EXPECT_EQ(thrownMessage(Unmodify(phosphoAt({{1, 0}})), moleculeOf({})), noChainToTakeFrom);
    EXPECT_EQ(thrownMessage(Unmodify(phosphoAt({{1, 0}})), aminoAcid(u'K')), noChainToTakeFrom);
}

/// Places that the bounds test lets through although there is nothing.
const QList<Position> missingPlaces = {{3, 0},   {3, highest}, {3, lowest},       {-1, 0},
                                       {-1, 99}, {lowest, 0},  {lowest, highest}, {0, 5},
                                       {2, 5},   {0, -1},      {1, lowest}};

TEST(Modify, AtAMissingPlaceStaysWithTheMolecule)
{
    const chem::MoleculeEntity molecule = threeChains();
    for (const Position& place : missingPlaces) {
        SCOPED_TRACE(describe(place).toStdString());
        const chem::MoleculeEntity result = Modify(phosphoAt({place})).transform(molecule);
        EXPECT_EQ(result.modifications(), QList({phosphoAt({place})}));
        EXPECT_EQ(result.chains(), molecule.chains());
        EXPECT_EQ(result.averageMass(), molecule.averageMass() + 80.0);
        EXPECT_EQ(result.monoMass(), molecule.monoMass() + 40.0);
        EXPECT_EQ(historyTypes(result), QList<int>({0}));
    }
}

TEST(Unmodify, AtAMissingPlaceLooksInTheMoleculesOwnList)
{
    const chem::MoleculeEntity molecule = threeChains();
    for (const Position& place : missingPlaces) {
        SCOPED_TRACE(describe(place).toStdString());
        const chem::MoleculeEntity modified = Modify(phosphoAt({place})).transform(molecule);
        const chem::MoleculeEntity result = Unmodify(phosphoAt({place})).transform(modified);
        EXPECT_TRUE(result.modifications().isEmpty());
        EXPECT_EQ(result.chains(), molecule.chains());
        EXPECT_EQ(result.averageMass(), molecule.averageMass());
        EXPECT_EQ(thrownMessage(Unmodify(phosphoAt({place})), molecule), notFound);
        EXPECT_EQ(thrownMessage(Unmodify(phosphoAt({})), modified), notFound);
    }
}

TEST(ModifyMolecule, AtAMissingPlaceStaysWithTheMolecule)
{
    const chem::MoleculeEntity molecule = threeChains();
    QList<Position> places = missingPlaces;
    for (const PlaceCase& refusedByTheSteps : refusedPlaces)
        places.append(refusedByTheSteps.place);
    for (const Position& place : std::as_const(places)) {
        SCOPED_TRACE(describe(place).toStdString());
        const chem::MoleculeEntity result = chem::modifyMolecule(molecule, phospho(), place);
        EXPECT_EQ(result.modifications(), QList({phosphoAt({place})}));
        EXPECT_EQ(result.chains(), molecule.chains());
        EXPECT_EQ(result.averageMass(), molecule.averageMass() + 80.0);
        EXPECT_TRUE(result.transformations().isEmpty());
    }
}

TEST(Modify, AtTheFirstChainOfNonePassesTheBoundsTest)
{
    const chem::MoleculeEntity result = Modify(phosphoAt({{0, 0}})).transform(moleculeOf({}));
    EXPECT_EQ(result.modifications(), QList({phosphoAt({{0, 0}})}));
    EXPECT_EQ(result.averageMass(), 80.0);
    EXPECT_EQ(thrownMessage(Unmodify(phosphoAt({{0, 0}})), moleculeOf({})), notFound);
}

TEST(Unmodify, AtTheSamePlaceTakesOffWhatModifyPutThere)
{
    const chem::MoleculeEntity molecule = proteinOf(u"ASK"_s);
    const chem::MoleculeEntity modified = Modify(phosphoAt({{0, 2}})).transform(molecule);
    const chem::MoleculeEntity result = Unmodify(phosphoAt({{0, 2}})).transform(modified);
    EXPECT_EQ(result.averageMass(), molecule.averageMass());
    EXPECT_EQ(result.monoMass(), molecule.monoMass());
    EXPECT_EQ(result.formula().toString(), molecule.formula().toString());
    EXPECT_EQ(result.formula().elementCountMap().value(u"P"_s, -1), 0.0); // the entry stays
    EXPECT_EQ(historyTypes(result), QList<int>({0, 1}));
}

TEST(Unmodify, LeavesTheResidueAStructuredMoleculeWithTwoEntries)
{
    const chem::MoleculeEntity modified =
        Modify(phosphoAt({{0, 2}})).transform(proteinOf(u"ASK"_s));
    const chem::MoleculeEntity residue =
        residueAt(Unmodify(phosphoAt({{0, 2}})).transform(modified), 0, 2);
    EXPECT_TRUE(residue.modifications().isEmpty());
    EXPECT_EQ(historyTypes(residue), QList<int>({0, 1}));
    EXPECT_EQ(residue.type(), chem::MoleculeType::AminoAcid);
    EXPECT_EQ(residue.averageMass(), aminoAcid(u'S').averageMass());
}

TEST(Unmodify, SubtractsAndDoesNotRestore)
{
    // (0.1 + 0.7) - 0.7 is 0.1 with its last bits lost.
    chem::StructuredMolecule molecule;
    molecule.averageMass = 0.1;
    molecule.monoMass = 0.1;
    const chem::MoleculeEntity modified = Modify(0.7).transform(molecule);
    const chem::MoleculeEntity result = Unmodify(Modification(0.7, {})).transform(modified);
    EXPECT_EQ(result.averageMass(), 0.09999999999999998);
    EXPECT_EQ(result.monoMass(), 0.09999999999999998);
}

TEST(Unmodify, SubtractsFromTotalsThatDoNotBelongToTheParts)
{
    chem::StructuredMolecule odd;
    odd.averageMass = 1000.0;
    odd.monoMass = 999.0;
    odd.formula = formula(u"C9"_s);
    odd.modifications = {phosphoAt({})};
    const chem::MoleculeEntity result = Unmodify(phosphoAt({})).transform(odd);
    EXPECT_EQ(result.averageMass(), 920.0);
    EXPECT_EQ(result.monoMass(), 959.0);
    EXPECT_EQ(result.formula().toString(), u"C9H(-1)O(-3)P(-1)"_s);
}

TEST(Unmodify, TakesTheFirstOfTwoEqualEntries)
{
    const Modification named(namedGroup(u"first"_s, {}, u"HPO3"_s, 80.0), {});
    const Modification alike(namedGroup(u"second"_s, {}, u"HPO3"_s, 80.0), {});
    const Modification other(3.0, {});
    const chem::MoleculeEntity molecule =
        moleculeOf({letterChain(u"ASK"_s)}, {other, named, alike});
    const chem::MoleculeEntity result = Unmodify(phosphoAt({})).transform(molecule);
    ASSERT_EQ(result.modifications().size(), 2);
    EXPECT_EQ(result.modifications()[0], other);
    EXPECT_EQ(result.modifications()[1].entity().name(), u"second"_s);
    EXPECT_EQ(result.averageMass(), molecule.averageMass() - 80.0);
}

TEST(Unmodify, FailsOnCandidatesInAnotherOrder)
{
    const chem::MoleculeEntity modified =
        Modify(phosphoAt(twoPlaces)).transform(proteinOf(u"ASK"_s));
    const QString before = describe(modified);
    EXPECT_EQ(thrownMessage(Unmodify(phosphoAt(twoPlacesTurned)), modified), notFound);
    EXPECT_EQ(describe(modified), before);
    EXPECT_EQ(thrownMessage(Unmodify(phosphoAt(twoPlaces)), modified), QString());
}

TEST(Unmodify, FailsOnAResidueThatWasNeverModified)
{
    const chem::MoleculeEntity molecule = proteinOf(u"ASK"_s);
    const QString before = describe(molecule);
    EXPECT_EQ(thrownMessage(Unmodify(phosphoAt({{0, 2}})), molecule), notFound);
    EXPECT_EQ(describe(molecule), before);
}

TEST(Unmodify, FailsOnAnotherGroup)
{
    const chem::MoleculeEntity modified = Modify(phospho()).transform(proteinOf(u"ASK"_s));
    EXPECT_EQ(thrownMessage(Unmodify(Modification(79.0, {})), modified), notFound);
    EXPECT_EQ(thrownMessage(Unmodify(phosphoAt(twoPlaces)), modified), notFound);
    EXPECT_EQ(thrownMessage(Unmodify(phosphoAt({})), 5.0), notFound);
}

TEST(Unmodify, WithoutAPlaceDoesNotReachAResidue)
{
    const chem::MoleculeEntity modified =
        Modify(phosphoAt({{0, 2}})).transform(proteinOf(u"ASK"_s));
    EXPECT_EQ(thrownMessage(Unmodify(phosphoAt({})), modified), notFound);
}

TEST(Unmodify, AtOnePlaceDoesNotReachTheMoleculesOwnList)
{
    // A builder takes such an entry as it stands; the step looks on the residue.
    const chem::MoleculeEntity molecule =
        moleculeOf({letterChain(u"ASK"_s)}, {phosphoAt({{0, 2}})});
    EXPECT_EQ(thrownMessage(Unmodify(phosphoAt({{0, 2}})), molecule), notFound);
}

TEST(Unmodify, ComparesGroupsByTheirChemistry)
{
    const chem::MoleculeEntity modified = Modify(phospho()).transform(proteinOf(u"ASK"_s));
    const chem::Molecule unnamed = group(u"O3HP"_s, 80.0);
    EXPECT_EQ(thrownMessage(Unmodify(Modification(unnamed, {})), modified), QString());
}

TEST(Unmodify, AtOnePlaceTakesTheParentLocusOfItsChainAway)
{
    const chem::MoleculeEntity modified =
        Modify(phosphoAt({{0, 2}})).transform(proteinOf(u"ASK"_s));
    const chem::MoleculeEntity piece =
        chem::ChainFragmenter({{0, {u"a"_s, 0, 1, 4}, 0}}).transform(modified);
    ASSERT_EQ(describe(piece.chains().first().parentLocus()), u"a:0:1:4"_s);
    const chem::Chain chain = Unmodify(phosphoAt({{0, 1}})).transform(piece).chains().first();
    EXPECT_EQ(describe(chain.parentLocus()), u":0:0:0"_s);
    EXPECT_EQ(chain.name(), u"chain"_s);
    EXPECT_EQ(chain.code(), u"c"_s);
    EXPECT_EQ(chain.type(), chem::MoleculeType::Peptide);
}

TEST(Unmodify, LeavesItsInputAlone)
{
    const chem::MoleculeEntity modified =
        Modify(phosphoAt({{0, 2}})).transform(proteinOf(u"ASK"_s));
    const QString before = describe(modified);
    const chem::MoleculeEntity result = Unmodify(phosphoAt({{0, 2}})).transform(modified);
    EXPECT_EQ(describe(modified), before);
    EXPECT_EQ(describe(stateBefore(result, 1)), before);
}

TEST(ModifyMolecule, PutsTheGroupOnTheResidue)
{
    const chem::MoleculeEntity molecule = proteinOf(u"ASK"_s);
    const chem::MoleculeEntity result = chem::modifyMolecule(molecule, phospho(), {0, 2});
    const chem::MoleculeEntity residue = residueAt(result, 0, 2);
    EXPECT_EQ(residue.modifications(), QList({phosphoAt({})}));
    EXPECT_EQ(historyTypes(residue), QList<int>({0}));
    EXPECT_TRUE(result.modifications().isEmpty());
    EXPECT_EQ(result.averageMass(), molecule.averageMass() + 80.0);
}

TEST(ModifyMolecule, KeepsTextsTypeLinksAndModificationsAndDropsTheHistory)
{
    const chem::MoleculeEntity start =
        moleculeOf({letterChain(u"ASK"_s, u"left"_s)}, {Modification(3.0, twoPlaces)},
                   {chem::Link(2.0, {{0, 1}, {0, 3}})});
    const chem::MoleculeEntity molecule = Modify(5.0).transform(start);
    const chem::MoleculeEntity result = chem::modifyMolecule(molecule, phospho(), {0, 2});
    EXPECT_EQ(result.name(), u"molecule"_s);
    EXPECT_EQ(result.code(), u"M"_s);
    EXPECT_EQ(result.type(), chem::MoleculeType::Protein);
    EXPECT_EQ(result.description(), QString());
    EXPECT_EQ(result.links(), molecule.links());
    EXPECT_EQ(result.modifications(), molecule.modifications());
    EXPECT_TRUE(result.transformations().isEmpty());
    EXPECT_EQ(result.chains().first().name(), u"left"_s);
    EXPECT_EQ(result.chains().first().code(), u"c"_s);
    EXPECT_EQ(result.chains().first().type(), chem::MoleculeType::Peptide);
}

TEST(ModifyMolecule, SumsAgain)
{
    chem::StructuredMolecule odd; // stored totals that do not belong to the parts
    odd.averageMass = 1000.0;
    odd.monoMass = 999.0;
    odd.formula = formula(u"C9"_s);
    odd.chains = {letterChain(u"S"_s)};
    const chem::MoleculeEntity result = chem::modifyMolecule(odd, phospho(), {0, 1});
    EXPECT_EQ(result.averageMass(), 1.0 + aminoAcid(u'S').averageMass() + 80.0 + 17.0);
    EXPECT_EQ(result.formula().toString(), u"C2H6NO5P"_s);
}

TEST(ModifyMolecule, TakesTheParentLocusOfItsChainAway)
{
    const chem::MoleculeEntity piece =
        chem::ChainFragmenter({{0, {u"a"_s, 0, 1, 4}, 0}}).transform(proteinOf(u"ASK"_s));
    const chem::Chain chain = chem::modifyMolecule(piece, phospho(), {0, 1}).chains().first();
    EXPECT_EQ(describe(chain.parentLocus()), u":0:0:0"_s);
}

TEST(Modify, CopiesAndMovesApplyTheSameModification)
{
    const chem::MoleculeEntity molecule = proteinOf(u"ASK"_s);
    Modify put(phosphoAt({{0, 2}}));
    Unmodify take(phosphoAt({{0, 2}}));
    const chem::MoleculeEntity modified = put.transform(molecule);
    const chem::MoleculeEntity restored = take.transform(modified);

    const Modify putCopy(put);
    Modify putAssigned(0);
    putAssigned = put;
    const Modify putMoved(std::move(put));
    for (const Modify* step : {&putCopy, &std::as_const(putAssigned), &putMoved})
        EXPECT_EQ(describe(step->transform(molecule)), describe(modified));

    const Unmodify takeCopy(take);
    Unmodify takeAssigned{Modification()};
    takeAssigned = take;
    const Unmodify takeMoved(std::move(take));
    for (const Unmodify* step : {&takeCopy, &std::as_const(takeAssigned), &takeMoved})
        EXPECT_EQ(describe(step->transform(modified)), describe(restored));
}

RC_GTEST_PROP(ModifyLaws, PlaceOfAModificationDoesNotChangeTheWeight, ())
{
    const chem::MoleculeEntity protein = randomProteins::anyProtein();
    const chem::MoleculeEntity added = randomProteins::anyGroup();
    const int size = static_cast<int>(protein.chains().first().residues().size());
    const Position place = {0, *rc::gen::inRange(0, size)};
    const chem::MoleculeEntity onResidue =
        chem::Modify(Modification(added, {place})).transform(protein);
    const chem::MoleculeEntity anywhere = chem::Modify(added).transform(protein);
    RC_ASSERT(onResidue.averageMass() == anywhere.averageMass());
    RC_ASSERT(onResidue.monoMass() == anywhere.monoMass());
    RC_ASSERT(onResidue.formula().elementCountMap() == anywhere.formula().elementCountMap());
    RC_ASSERT(onResidue.averageMass() == protein.averageMass() + added.averageMass());
}

RC_GTEST_PROP(ModifyLaws, OrderOfTwoModificationsDoesNotChangeTheWeight, ())
{
    const chem::MoleculeEntity protein = randomProteins::anyProtein();
    const chem::Modify one(randomProteins::anyGroup());
    const chem::Modify other(randomProteins::anyGroup());
    const chem::MoleculeEntity oneFirst = other.transform(one.transform(protein));
    const chem::MoleculeEntity otherFirst = one.transform(other.transform(protein));
    RC_ASSERT(oneFirst == otherFirst);
    RC_ASSERT(oneFirst.averageMass() == otherFirst.averageMass());
}

} // namespace
