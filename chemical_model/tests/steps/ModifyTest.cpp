#include "AnySteps.h"
#include "Differences.h"
#include "ExtremeNumbers.h"
#include "RandomProteins.h"
#include "RapidCheckChoices.h"
#include "SmallMolecules.h"
#include "StepMessages.h"
#include "TestPrinters.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <type_traits>

using namespace Qt::StringLiterals;
using namespace smallMolecules;
using chem::Modification;
using chem::Modify;
using chem::Unmodify;
using fields::differences;
using fields::fieldsOf;

namespace {

static_assert(std::is_copy_assignable_v<Modify> && std::is_move_assignable_v<Modify>);
static_assert(std::is_copy_assignable_v<Unmodify> && std::is_move_assignable_v<Unmodify>);
static_assert(std::is_constructible_v<Modify, chem::MoleculeEntity>);
static_assert(std::is_constructible_v<Modify, const Modification&>);
static_assert(std::is_constructible_v<Unmodify, Modification>);
// What to take off must be named with its places.
static_assert(!std::is_constructible_v<Unmodify, chem::MoleculeEntity>);

Modification phosphoAt(const QList<Position>& places)
{
    return {phosphorylation(), places};
}

const QList<Position> twoPlaces = {{0, 1}, {0, 2}};

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
    EXPECT_EQ(differences(stateBefore(residue, 0), chem::MoleculeEntity(aminoAcid(u'S'))), "");
    EXPECT_EQ(result.sequence(), u"AS[]K"_s);
}

TEST(Modify, AtOnePlaceLeavesTheOtherResiduesAndChainsAlone)
{
    const chem::MoleculeEntity molecule =
        moleculeOf({letterChain(u"AS"_s, u"first"_s), letterChain(u"GG"_s, u"second"_s)});
    const chem::MoleculeEntity result = Modify(phosphoAt({{1, 1}})).transform(molecule);
    EXPECT_EQ(result.chains()[0], molecule.chains()[0]);
    for (int residue : {0, 2, 3})
        EXPECT_EQ(differences(residueAt(result, 1, residue), residueAt(molecule, 1, residue)), "");
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
    EXPECT_EQ(differences(chains[0].parentLocus(), chem::ParentChainLocus()), "");
    EXPECT_EQ(differences(chains[1].parentLocus(), chem::ParentChainLocus{u"b"_s, 0, 2, 4}), "");
}

TEST(Modify, WithoutAPlaceGoesIntoTheMoleculesOwnList)
{
    const chem::MoleculeEntity molecule =
        moleculeOf({letterChain(u"ASK"_s)}, {Modification(3.0, {})});
    const chem::MoleculeEntity result = Modify(phosphorylation()).transform(molecule);
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
    EXPECT_EQ(differences(result.chains(), molecule.chains()), "");
    EXPECT_EQ(result.averageMass(), molecule.averageMass() + 80.0);
}

TEST(Modify, AtOpenPlacesTestsNoBounds)
{
    const Modification modification = phosphoAt({{99, 0}, {0, 99}});
    const chem::MoleculeEntity result = Modify(modification).transform(proteinOf(u"ASK"_s));
    EXPECT_EQ(result.modifications(), QList({modification}));
}

TEST(Modify, AddsToTheTotalsAndDoesNotSumAgain)
{
    for (const Modification& modification : {phosphoAt({{0, 1}}), phosphoAt({})}) {
        const chem::MoleculeEntity result =
            Modify(modification).transform(withOddTotals({letterChain(u"ASK"_s)}));
        EXPECT_EQ(result.averageMass(), 1080.0); // a new sum would lose the stored totals
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

/// A place and what the two steps say to it, on a molecule of three chains of five residues each.
struct PlaceCase
{
    Position place;
    const char* modifyMessage;
    const char* unmodifyMessage;
};

using namespace stepMessages;

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

TEST(Modify, AndUnmodifyNameThePlaceThatCannotExist)
{
    const chem::MoleculeEntity molecule = threeChains();
    const fields::Fields before = fieldsOf(molecule);
    for (const PlaceCase& each : refusedPlaces) {
        const Modification modification = phosphoAt({each.place});
        SCOPED_TRACE(testing::PrintToString(each.place));
        EXPECT_EQ(thrownMessage(Modify(modification), molecule), each.modifyMessage);
        EXPECT_EQ(thrownMessage(Unmodify(modification), molecule), each.unmodifyMessage);
    }
    EXPECT_EQ(differences(molecule, before), "");
}

TEST(Modify, AndUnmodifyNameThePlaceOnAMoleculeWithoutChains)
{
    for (const chem::MoleculeEntity& molecule :
         {moleculeOf({}), chem::MoleculeEntity(5.0), chem::MoleculeEntity(aminoAcid(u'K'))}) {
        EXPECT_EQ(thrownMessage(Modify(phosphoAt({{1, 0}})), molecule), noChain);
        EXPECT_EQ(thrownMessage(Unmodify(phosphoAt({{1, 0}})), molecule), noChainToTakeFrom);
    }
}

/// Places that the bounds test lets through although there is nothing.
const QList<Position> missingPlaces = {{3, 0},   {3, highest}, {3, lowest},       {-1, 0},
                                       {-1, 99}, {lowest, 0},  {lowest, highest}, {0, 5},
                                       {2, 5},   {0, -1},      {1, lowest}};

TEST(Modify, AtAMissingPlaceStaysWithTheMolecule)
{
    const chem::MoleculeEntity molecule = threeChains();
    for (const Position& place : missingPlaces) {
        SCOPED_TRACE(testing::PrintToString(place));
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
        SCOPED_TRACE(testing::PrintToString(place));
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
        SCOPED_TRACE(testing::PrintToString(place));
        const chem::MoleculeEntity result =
            chem::modifyMolecule(molecule, phosphorylation(), place);
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
    chem::StructuredMolecule odd = withOddTotals({});
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

/// What a molecule has and what is looked for in vain.
struct MissCase
{
    const char* why;
    chem::MoleculeEntity molecule;
    Modification missing;
};

TEST(Unmodify, FailsOnWhatIsNotThere)
{
    const auto with = [](const Modification& modification) {
        return Modify(modification).transform(proteinOf(u"ASK"_s));
    };
    const QList<MissCase> cases = {
        {"candidates in another order", with(phosphoAt({{0, 1}, {0, 2}})),
         phosphoAt({{0, 2}, {0, 1}})},
        {"a residue that was never modified", proteinOf(u"ASK"_s), phosphoAt({{0, 2}})},
        {"another group", with(phosphoAt({})), Modification(79.0, {})},
        {"other places", with(phosphoAt({})), phosphoAt(twoPlaces)},
        {"a mass without modifications", 5.0, phosphoAt({})},
        {"without a place none on a residue", with(phosphoAt({{0, 2}})), phosphoAt({})},
        // A builder takes such an entry as it stands; the step looks on the residue.
        {"at one place none of the molecule's own",
         moleculeOf({letterChain(u"ASK"_s)}, {phosphoAt({{0, 2}})}), phosphoAt({{0, 2}})}};
    for (const MissCase& each : cases)
        EXPECT_EQ(thrownMessage(Unmodify(each.missing), each.molecule), notFound) << each.why;
}

TEST(Unmodify, ComparesGroupsByTheirChemistry)
{
    const chem::MoleculeEntity modified = Modify(phosphorylation()).transform(proteinOf(u"ASK"_s));
    const chem::Molecule unnamed = group(u"O3HP"_s, 80.0);
    EXPECT_EQ(thrownMessage(Unmodify(Modification(unnamed, {})), modified), "");
}

TEST(Unmodify, AtOnePlaceTakesTheParentLocusOfItsChainAway)
{
    const chem::MoleculeEntity modified =
        Modify(phosphoAt({{0, 2}})).transform(proteinOf(u"ASK"_s));
    const chem::MoleculeEntity piece =
        chem::ChainFragmenter({{0, {u"a"_s, 0, 1, 4}, 0}}).transform(modified);
    const chem::Chain chain = Unmodify(phosphoAt({{0, 1}})).transform(piece).chains().first();
    EXPECT_EQ(differences(chain.parentLocus(), chem::ParentChainLocus()), "");
    EXPECT_EQ(chain.name(), u"chain"_s);
    EXPECT_EQ(chain.code(), u"c"_s);
    EXPECT_EQ(chain.type(), chem::MoleculeType::Peptide);
}

TEST(ModifyMolecule, GivesWhatModifyGivesWithoutAHistory)
{
    const chem::MoleculeEntity molecule = Modify(5.0).transform(proteinWithParts());
    const chem::MoleculeEntity stepped = Modify(phosphoAt({{0, 2}})).transform(molecule);
    const chem::MoleculeEntity expected =
        moleculeOf(stepped.chains(), stepped.modifications(), stepped.links());
    EXPECT_EQ(differences(chem::modifyMolecule(molecule, phosphorylation(), {0, 2}), expected), "");
}

TEST(ModifyMolecule, SumsAgain)
{
    const chem::MoleculeEntity result =
        chem::modifyMolecule(withOddTotals({letterChain(u"S"_s)}), phosphorylation(), {0, 1});
    EXPECT_EQ(result.averageMass(), 1.0 + aminoAcid(u'S').averageMass() + 80.0 + 17.0);
    EXPECT_EQ(result.formula().toString(), u"C2H6NO5P"_s);
}

TEST(ModifyMolecule, TakesTheParentLocusOfItsChainAway)
{
    const chem::MoleculeEntity piece =
        chem::ChainFragmenter({{0, {u"a"_s, 0, 1, 4}, 0}}).transform(proteinOf(u"ASK"_s));
    const chem::Chain chain =
        chem::modifyMolecule(piece, phosphorylation(), {0, 1}).chains().first();
    EXPECT_EQ(differences(chain.parentLocus(), chem::ParentChainLocus()), "");
}

// Laws.

RapidCheckChoices drawn;

Position anyPlace()
{
    return anySteps::SmallParts(&drawn).position();
}

/// Whether the bounds test of the steps refuses this place.
bool isRefused(const chem::MoleculeEntity& molecule, const Position& place)
{
    const QList<chem::Chain> chains = molecule.chains();
    if (place.first > chains.size())
        return true;
    const bool chainExists = place.first >= 0 && place.first < chains.size();
    return chainExists && place.second > chains[place.first].residues().size();
}

RC_GTEST_PROP(ModifyLaws, ModifyThrowsOnlyForOneRefusedPlace, ())
{
    const chem::MoleculeEntity molecule = anySteps::anyMolecule(&drawn);
    const Modification modification = anySteps::anyModification(&drawn);
    const QList<Position> places = modification.possibleChainLocations();
    const bool refused = places.size() == 1 && isRefused(molecule, places.first());
    RC_ASSERT(thrownMessage(Modify(modification), molecule).empty() == !refused);
}

RC_GTEST_PROP(ModifyLaws, UnmodifyTakesBackWhatModifyAdded, ())
{
    const chem::MoleculeEntity molecule = anySteps::anyMolecule(&drawn);
    const Modification modification = anySteps::anyModification(&drawn);
    RC_PRE(thrownMessage(Modify(modification), molecule).empty());

    const chem::MoleculeEntity modified = Modify(modification).transform(molecule);
    const chem::MoleculeEntity restored = Unmodify(modification).transform(modified);
    QList<Modification> modifications = molecule.modifications();
    const qsizetype equal = modifications.indexOf(modification);
    if (equal >= 0 && modified.modifications().size() > modifications.size())
        modifications.append(modifications.takeAt(equal)); // the first of two equals comes off
    RC_ASSERT(restored == molecule);
    RC_ASSERT(restored.averageMass() == molecule.averageMass());
    RC_ASSERT(differences(restored.modifications(), modifications) == "");
    RC_ASSERT(restored.sequence() == molecule.sequence());
}

RC_GTEST_PROP(ModifyLaws, ModifyMoleculeAgreesWithModifyOnTheMolecule, ())
{
    const chem::MoleculeEntity molecule = anySteps::anyMolecule(&drawn);
    const chem::MoleculeEntity added = anySteps::SmallParts(&drawn).group();
    const Position place = anyPlace();
    RC_PRE(!isRefused(molecule, place));

    const chem::MoleculeEntity rebuilt = chem::modifyMolecule(molecule, added, place);
    const chem::MoleculeEntity stepped = Modify(Modification(added, {place})).transform(molecule);
    RC_ASSERT(differences(rebuilt.chains(), stepped.chains()) == "");
    RC_ASSERT(differences(rebuilt.modifications(), stepped.modifications()) == "");
    RC_ASSERT(rebuilt == stepped);
    RC_ASSERT(rebuilt.transformations().isEmpty());
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
