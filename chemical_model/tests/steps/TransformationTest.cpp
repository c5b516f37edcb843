#include "SmallMolecules.h"
#include "TestPrinters.h"

#include <gtest/gtest.h>

#include <type_traits>

using namespace Qt::StringLiterals;
using namespace smallMolecules;
using chem::TransformationEntity;

namespace {

static_assert(std::is_abstract_v<chem::Transformation>);
static_assert(std::has_virtual_destructor_v<chem::Transformation>);
static_assert(std::is_copy_assignable_v<chem::Transformation>);

static_assert(std::is_base_of_v<chem::Transformation, TransformationEntity>);
static_assert(!std::is_default_constructible_v<TransformationEntity>);
static_assert(std::is_copy_constructible_v<TransformationEntity>);
static_assert(std::is_copy_assignable_v<TransformationEntity>);
static_assert(std::is_nothrow_move_constructible_v<TransformationEntity>);
static_assert(std::is_nothrow_move_assignable_v<TransformationEntity>);

template <typename T>
constexpr bool isStep = std::is_constructible_v<TransformationEntity, T, chem::MoleculeEntity>;

static_assert(isStep<chem::Modify> && isStep<chem::Unmodify>);
static_assert(isStep<chem::EstablishLink> && isStep<chem::ChainFragmenter>);
static_assert(!isStep<TransformationEntity> && !isStep<chem::Modification>);
static_assert(!isStep<chem::MoleculeEntity> && !isStep<int>);

/// A step of a caller's own: the base class is open.
struct Unchanged : public chem::Transformation
{
    chem::MoleculeEntity transform(chem::MoleculeEntity molecule) const override
    {
        return molecule;
    }
    chem::TransformationType type() const override { return chem::ModifyTransformation; }
};

const chem::Link::Connection anyConnection = {{0, 1}, {0, 2}};

chem::EstablishLink linkStep()
{
    return chem::EstablishLink(group(u"H-2"_s, -2.0), anyConnection);
}

chem::ChainFragmenter cutStep()
{
    return chem::ChainFragmenter({{0, {u"piece"_s, 0, 1, 3}, 0}});
}

chem::Modify methylation()
{
    return chem::Modify(group(u"CH2"_s, 14.0));
}

chem::Unmodify demethylation()
{
    return chem::Unmodify(chem::Modification(group(u"CH2"_s, 14.0), {}));
}

TEST(TransformationType, NumbersAreStable)
{
    EXPECT_EQ(chem::ModifyTransformation, 0);
    EXPECT_EQ(chem::UnmodifyTransformation, 1);
    EXPECT_EQ(chem::EstablishLinkTransformation, 5);
    EXPECT_EQ(chem::ChainFragmenterTransformation, 7);
}

TEST(Transformation, EachStepTellsItsType)
{
    EXPECT_EQ(methylation().type(), chem::ModifyTransformation);
    EXPECT_EQ(demethylation().type(), chem::UnmodifyTransformation);
    EXPECT_EQ(linkStep().type(), chem::EstablishLinkTransformation);
    EXPECT_EQ(cutStep().type(), chem::ChainFragmenterTransformation);
}

TEST(Transformation, CallersCanDeriveAndCopySteps)
{
    const Unchanged step;
    Unchanged copy(step);
    copy = step;
    const chem::Transformation& base = copy;
    EXPECT_EQ(describe(base.transform(proteinOf(u"AK"_s))), describe(proteinOf(u"AK"_s)));
}

TEST(TransformationEntity, TellsTheTypeOfItsStep)
{
    EXPECT_EQ(TransformationEntity(methylation(), 0).type(), 0);
    EXPECT_EQ(TransformationEntity(demethylation(), 0).type(), 1);
    EXPECT_EQ(TransformationEntity(linkStep(), 0).type(), 5);
    EXPECT_EQ(TransformationEntity(cutStep(), 0).type(), 7);
}

TEST(TransformationEntity, StandsWhereAStepStands)
{
    const TransformationEntity entry(methylation(), 0);
    const chem::Transformation& step = entry;
    EXPECT_EQ(describe(step.transform(proteinOf(u"AK"_s))),
              describe(methylation().transform(proteinOf(u"AK"_s))));
}

TEST(TransformationEntity, RepeatsItsStepOnAnotherMoleculeAndStaysAsItIs)
{
    const chem::MoleculeEntity first = proteinOf(u"AK"_s);
    TransformationEntity entry(methylation(), first);
    const chem::MoleculeEntity other = methylation().transform(proteinOf(u"GG"_s));

    const chem::MoleculeEntity result = entry.transform(other);

    EXPECT_EQ(historyTypes(result), QList<int>({0, 0}));
    EXPECT_EQ(result.averageMass(), other.averageMass() + 14.0);
    EXPECT_EQ(describe(stateBefore(result, 1)), describe(other));
    EXPECT_EQ(describe(entry.original()), describe(first));
    EXPECT_EQ(entry.type(), 0);
}

TEST(TransformationEntity, HoldsTheMoleculeThatItWasGiven)
{
    TransformationEntity entry(methylation(), 12.5);
    EXPECT_EQ(entry.original().averageMass(), 12.5);
}

TEST(TransformationEntity, CopiesAndAssignmentsGiveBothParts)
{
    TransformationEntity entry(linkStep(), 12.5);
    TransformationEntity copy(entry);
    TransformationEntity assigned(methylation(), 0);
    assigned = entry;
    for (TransformationEntity* each : {&copy, &assigned, &entry}) {
        EXPECT_EQ(each->type(), 5);
        EXPECT_EQ(each->original().averageMass(), 12.5);
    }
}

TEST(TransformationEntity, MovedFromOneCanBeAssignedAndDestroyed)
{
    TransformationEntity source(linkStep(), 12.5);
    TransformationEntity target(std::move(source));
    EXPECT_EQ(target.type(), 5);
    EXPECT_EQ(target.original().averageMass(), 12.5);

    TransformationEntity assigned(methylation(), 0);
    assigned = std::move(target);
    EXPECT_EQ(assigned.type(), 5);
    EXPECT_EQ(assigned.original().averageMass(), 12.5);

    source = assigned;
    EXPECT_EQ(source.type(), 5);
    EXPECT_EQ(source.original().averageMass(), 12.5);
}

TEST(History, OfAMoleculeFromABuilderIsEmpty)
{
    EXPECT_TRUE(proteinOf(u"AK"_s).transformations().isEmpty());
}

TEST(History, OfModifyThenUnmodifyHasTwoEntriesThatReachBackTwice)
{
    const chem::MoleculeEntity start = proteinOf(u"AK"_s);
    const chem::MoleculeEntity modified = methylation().transform(start);
    const chem::MoleculeEntity end = demethylation().transform(modified);

    EXPECT_EQ(historyTypes(end), QList<int>({0, 1}));
    QList<TransformationEntity> history = end.transformations();
    EXPECT_TRUE(history[0].original().transformations().isEmpty());
    EXPECT_EQ(historyTypes(history[1].original()), QList<int>({0}));
    EXPECT_EQ(describe(history[0].original()), describe(start));
    EXPECT_EQ(describe(history[1].original()), describe(modified));
    EXPECT_EQ(describe(stateBefore(history[1].original(), 0)), describe(start));
}

TEST(History, RunsFromTheOldestStepToTheNewest)
{
    chem::MoleculeEntity molecule = proteinOf(u"AKC"_s);
    QStringList states;
    const auto apply = [&](const chem::Transformation& step) {
        states.append(describe(molecule));
        molecule = step.transform(molecule);
    };
    apply(cutStep());
    apply(methylation());
    apply(linkStep());
    apply(demethylation());

    EXPECT_EQ(historyTypes(molecule), QList<int>({7, 0, 5, 1}));
    QList<TransformationEntity> history = molecule.transformations();
    for (qsizetype i = 0; i < history.size(); ++i) {
        SCOPED_TRACE(i);
        EXPECT_EQ(describe(history[i].original()), states[i]);
        EXPECT_EQ(history[i].original().transformations().size(), i);
    }
}

TEST(History, ReplayedFromItsOldestMoleculeGivesTheSameMolecule)
{
    chem::MoleculeEntity molecule = proteinOf(u"AKC"_s);
    molecule = methylation().transform(molecule);
    molecule = linkStep().transform(molecule);
    molecule = cutStep().transform(molecule);

    QList<TransformationEntity> history = molecule.transformations();
    chem::MoleculeEntity replayed = history.first().original();
    for (const TransformationEntity& entry : std::as_const(history))
        replayed = entry.transform(replayed);
    EXPECT_EQ(describe(replayed), describe(molecule));
}

TEST(History, StartsAnewWhenAMoleculeIsRebuilt)
{
    const chem::MoleculeEntity modified = methylation().transform(proteinOf(u"AK"_s));
    EXPECT_TRUE(chem::modifyMolecule(modified, 14.0, {0, 1}).transformations().isEmpty());
    EXPECT_TRUE(moleculeOf(modified.chains()).transformations().isEmpty());
}

/// Every step copies what it does not change, whatever it is given.
class StepsOnAnyEntity : public testing::TestWithParam<int>
{
protected:
    static chem::MoleculeEntity input(int kind)
    {
        switch (kind) {
        case 0:
            return nullptr;
        case 1:
            return 7;
        case 2:
            return -2.5;
        case 3:
            return chem::Modification(group(u"CH2"_s, 14.0), {{0, 0}});
        case 4:
            return group(u"H2O"_s, 18.0);
        case 5:
            return namedGroup(u"water"_s, u"W"_s, u"H2O"_s, 18.0);
        case 6:
            return aminoAcid(u'K');
        default:
            return moleculeOf({letterChain(u"AK"_s)}, {chem::Modification(3.0, {})},
                              {chem::Link(2.0, anyConnection)});
        }
    }
};

TEST_P(StepsOnAnyEntity, KeepTypeTextsPartsAndMasses)
{
    const chem::MoleculeEntity molecule = input(GetParam());
    const chem::MoleculeEntity result =
        chem::EstablishLink(nullptr, anyConnection).transform(molecule);

    EXPECT_EQ(result.type(), molecule.type());
    EXPECT_EQ(result.name(), molecule.name());
    EXPECT_EQ(result.code(), molecule.code());
    EXPECT_EQ(result.description(), QString());
    EXPECT_EQ(result.averageMass(), molecule.averageMass());
    EXPECT_EQ(result.monoMass(), molecule.monoMass());
    EXPECT_EQ(describe(result.formula()), describe(molecule.formula()));
    EXPECT_EQ(result.chains(), molecule.chains());
    EXPECT_EQ(result.modifications(), molecule.modifications());
    EXPECT_EQ(result.links().size(), molecule.links().size() + 1);
    EXPECT_EQ(historyTypes(result), QList<int>({5}));
    EXPECT_EQ(describe(stateBefore(result, 0)), describe(molecule));
}

INSTANTIATE_TEST_SUITE_P(AllTypes, StepsOnAnyEntity, testing::Range(0, 8));

/// A peptide that stores neither formula nor masses; they follow from its sequence text.
chem::MoleculeEntity peptideWithoutTotals()
{
    chem::StructuredMolecule molecule;
    molecule.type = chem::MoleculeType::Peptide;
    molecule.chains = {chainOf({aminoAcid(u'G'), aminoAcid(u'G')})};
    return molecule;
}

TEST(Transformation, StoresTotalsThatTheInputOnlyImplied)
{
    const auto diglycine = chem::defaultChemicalFactory()->constructMolecule(u"C4H8N2O3"_s);
    const chem::MoleculeEntity molecule =
        chem::Modify(group(u"CH2"_s, 14.0)).transform(peptideWithoutTotals());
    EXPECT_EQ(molecule.formula().toString(), u"C5H10N2O3"_s);
    EXPECT_DOUBLE_EQ(molecule.averageMass(), diglycine.averageMass() + 14.0);
    EXPECT_DOUBLE_EQ(molecule.monoMass(), diglycine.monoMass() + 7.0);
}

TEST(Transformation, TakesTheRebuiltMassesOfAMolecule)
{
    const chem::Molecule water = chem::defaultChemicalFactory()->constructMolecule(u"H2O"_s);
    const chem::MoleculeEntity result =
        chem::Modify(1.0).transform(chem::Molecule(formula(u"H2O"_s), 0.0, 0.0));
    EXPECT_EQ(result.averageMass(), water.averageMass() + 1.0);
    EXPECT_EQ(result.monoMass(), water.monoMass() + 1.0);
}

TEST(History, OfTwoThousandStepsIsHeldAndReleased)
{
    chem::MoleculeEntity molecule = proteinOf(u"AKC"_s);
    const chem::Modify put(chem::Modification(group(u"CH2"_s, 14.0), {{0, 1}}));
    const chem::Unmodify take(chem::Modification(group(u"CH2"_s, 14.0), {{0, 1}}));
    const double mass = molecule.averageMass();
    for (int pair = 0; pair < 1000; ++pair)
        molecule = take.transform(put.transform(molecule));

    EXPECT_EQ(molecule.averageMass(), mass); // whole masses: no bit is lost
    QList<TransformationEntity> history = molecule.transformations();
    ASSERT_EQ(history.size(), 2000);
    EXPECT_EQ(history[1234].original().transformations().size(), 1234);
    EXPECT_EQ(residueAt(molecule, 0, 1).transformations().size(), 2000);
}

TEST(History, TwoHundredThousandDeepIsReleasedOnAnOrdinaryStack)
{
    chem::MoleculeEntity molecule = 1.0;
    for (int level = 0; level < 200000; ++level) {
        chem::StructuredMolecule next;
        next.transformations = {TransformationEntity(chem::Modify(0), molecule)};
        molecule = std::move(next);
    }
    EXPECT_EQ(molecule.transformations().size(), 1);
}

TEST(History, TwoHundredThousandDeepCanBeWalkedBack)
{
    chem::MoleculeEntity molecule = 1.0;
    for (int level = 0; level < 200000; ++level) {
        chem::StructuredMolecule next;
        next.transformations = {TransformationEntity(cutStep(), molecule)};
        molecule = std::move(next);
    }
    int steps = 0;
    for (auto history = molecule.transformations(); !history.isEmpty(); ++steps) {
        molecule = history.last().original();
        history = molecule.transformations();
    }
    EXPECT_EQ(steps, 200000);
    EXPECT_EQ(molecule.averageMass(), 1.0);
}

} // namespace
