#include "steps/TransformationHistory.h"

#include "AnySteps.h"
#include "Differences.h"
#include "RapidCheckChoices.h"
#include "SumOfParts.h"
#include "TestPrinters.h"
#include "structure/StructuredCopy.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

using namespace Qt::StringLiterals;
using namespace smallMolecules;
using chem::MoleculeEntity;
using chem::TransformationEntity;
using fields::differences;
using fields::fieldsOf;

namespace {

/// An entity of each type.
const QList<MoleculeEntity>& entities()
{
    static const QList<MoleculeEntity> list = {nullptr,
                                               7,
                                               -2.5,
                                               chem::Modification(methylene(), {{0, 0}}),
                                               methylene(),
                                               phosphorylation(),
                                               aminoAcid(u'K'),
                                               proteinWithParts()};
    return list;
}

TEST(TransformationHistory, StructuredCopyOfAnyEntityHasAllItsFields)
{
    for (const MoleculeEntity& entity : entities()) {
        EXPECT_EQ(differences(MoleculeEntity(chem::structuredCopy(entity)), entity), "");
        const chem::StructuredMolecule copy = chem::copyWithoutTotals(entity);
        EXPECT_EQ(copy.averageMass, 0.0);
        EXPECT_EQ(copy.monoMass, 0.0);
        EXPECT_TRUE(copy.formula.isEmpty());
        EXPECT_EQ(differences(copy.chains, entity.chains()), "");
    }
}

TEST(TransformationHistory, RecordedStepIsTheLastEntry)
{
    for (const MoleculeEntity& entity : entities()) {
        const MoleculeEntity one =
            chem::recordStep(chem::structuredCopy(entity), chem::Modify(1.0), entity);
        const MoleculeEntity two =
            chem::recordStep(chem::structuredCopy(one), chem::EstablishLink(2.0, {}), one);
        EXPECT_EQ(historyTypes(two), QList<int>({0, 5}));
        EXPECT_EQ(differences(stateBefore(two, 0), entity), "");
        EXPECT_EQ(differences(stateBefore(two, 1), one), "");
    }
}

TEST(TransformationHistory, OfAMoleculeFromABuilderIsEmpty)
{
    EXPECT_TRUE(proteinOf(u"AK"_s).transformations().isEmpty());
    const MoleculeEntity modified = chem::Modify(methylene()).transform(proteinOf(u"AK"_s));
    EXPECT_TRUE(moleculeOf(modified.chains()).transformations().isEmpty());
}

TEST(TransformationHistory, RunsFromTheOldestStepToTheNewest)
{
    const chem::Modify modify(methylene());
    const chem::Unmodify unmodify{chem::Modification(methylene(), {})};
    const chem::EstablishLink link(group(u"H-2"_s, -2.0), {{0, 1}, {0, 2}});
    const chem::ChainFragmenter cut({{0, {u"piece"_s, 0, 1, 3}, 0}});
    MoleculeEntity molecule = proteinOf(u"AKC"_s);
    for (const chem::Transformation* step :
         std::initializer_list<const chem::Transformation*>{&cut, &modify, &link, &unmodify})
        molecule = step->transform(molecule);
    EXPECT_EQ(historyTypes(molecule), QList<int>({7, 0, 5, 1}));
    EXPECT_EQ(historyTypes(stateBefore(molecule, 2)), QList<int>({7, 0}));
}

/// A peptide that stores neither formula nor masses; they follow from its sequence text.
MoleculeEntity peptideWithoutTotals()
{
    chem::StructuredMolecule molecule;
    molecule.type = chem::MoleculeType::Peptide;
    molecule.chains = {chainOf({aminoAcid(u'G'), aminoAcid(u'G')})};
    return molecule;
}

TEST(TransformationHistory, StoresTotalsThatTheInputOnlyImplied)
{
    const auto diglycine = chem::defaultChemicalFactory()->constructMolecule(u"C4H8N2O3"_s);
    const MoleculeEntity molecule = chem::Modify(methylene()).transform(peptideWithoutTotals());
    EXPECT_EQ(molecule.formula().toString(), u"C5H10N2O3"_s);
    EXPECT_DOUBLE_EQ(molecule.averageMass(), diglycine.averageMass() + 14.0);
    EXPECT_DOUBLE_EQ(molecule.monoMass(), diglycine.monoMass() + 7.0);

    const chem::Molecule water = chem::defaultChemicalFactory()->constructMolecule(u"H2O"_s);
    const MoleculeEntity result =
        chem::Modify(1.0).transform(chem::Molecule(formula(u"H2O"_s), 0.0, 0.0));
    EXPECT_EQ(result.averageMass(), water.averageMass() + 1.0);
    EXPECT_EQ(result.monoMass(), water.monoMass() + 1.0);
}

TEST(TransformationHistory, OfTwoThousandStepsIsHeldAndReleased)
{
    MoleculeEntity molecule = proteinOf(u"AKC"_s);
    const chem::Modify put(chem::Modification(methylene(), {{0, 1}}));
    const chem::Unmodify take(chem::Modification(methylene(), {{0, 1}}));
    const double mass = molecule.averageMass();
    for (int pair = 0; pair < 1000; ++pair)
        molecule = take.transform(put.transform(molecule));

    EXPECT_EQ(molecule.averageMass(), mass); // whole masses: no bit is lost
    ASSERT_EQ(molecule.transformations().size(), 2000);
    EXPECT_EQ(stateBefore(molecule, 1234).transformations().size(), 1234);
    EXPECT_EQ(residueAt(molecule, 0, 1).transformations().size(), 2000);
}

// Laws of random programs of steps on random molecules.

RapidCheckChoices choices;

/// Applies a random program and calls `check` with each step, the molecule before it and the one
/// after it. A step that throws its message is left out.
template <typename Check>
MoleculeEntity runAnyProgram(MoleculeEntity molecule, Check check)
{
    for (int length = choices.below(13); length > 0; --length) {
        const auto step = anySteps::anyStepOn(molecule, &choices);
        const fields::Fields before = fieldsOf(molecule);
        try {
            const MoleculeEntity result = step->transform(molecule);
            check(*step, molecule, result);
            RC_ASSERT(differences(molecule, before) == "");
            molecule = result;
        } catch (const char*) {
            RC_ASSERT(differences(molecule, before) == "");
        }
    }
    return molecule;
}

RC_GTEST_PROP(HistoryLaws, TotalsAreTheSumOfTheParts, ())
{
    runAnyProgram(anySteps::anyMolecule(&choices),
                  [](const auto&, const auto&, const auto& result) {
                      RC_ASSERT(hasTotalsOfItsParts(result));
                  });
}

RC_GTEST_PROP(HistoryLaws, HistoryGrowsByEachStepAndReachesBack, ())
{
    QList<int> types;
    QList<fields::Fields> states;
    const MoleculeEntity molecule =
        runAnyProgram(anySteps::anyMolecule(&choices),
                      [&](const auto& step, const MoleculeEntity& input, const auto& result) {
                          types.append(step.type());
                          states.append(fieldsOf(input));
                          RC_ASSERT(historyTypes(result) == types);
                      });
    RC_ASSERT(molecule.transformations().size() == states.size());
    for (qsizetype i = 0; i < states.size(); ++i)
        RC_ASSERT(differences(stateBefore(molecule, i), states[i]) == "");
}

RC_GTEST_PROP(HistoryLaws, HistoryCanBeReplayedFromItsStart, ())
{
    const MoleculeEntity start = anySteps::anyMolecule(&choices);
    const MoleculeEntity end = runAnyProgram(start, [](const auto&, const auto&, const auto&) {});
    RC_ASSERT(differences(replayed(end.transformations(), start), end) == "");
}

} // namespace
