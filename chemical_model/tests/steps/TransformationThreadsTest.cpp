#include "Differences.h"
#include "ManyThreads.h"
#include "SmallMolecules.h"
#include "StepMessages.h"
#include "TestPrinters.h"

#include <gtest/gtest.h>

/// \file
/// Steps, histories and molecules that many threads share.

using namespace Qt::StringLiterals;
using namespace smallMolecules;
using chem::Modification;
using chem::MoleculeEntity;
using fields::differences;
using fields::Fields;
using fields::fieldsOf;

namespace {

/// Uses what `make` makes on many threads at once, each time anew. All must see what a single
/// thread sees.
template <typename Make, typename Use>
void expectSameOnThreads(Make make, Use use)
{
    const QList<Fields> expected = use(make());
    manyThreads::atOnceOnFresh(manyThreads::longRounds, make, [&](const auto& shared) {
        EXPECT_EQ(differences(use(shared), expected), "");
    });
}

MoleculeEntity sharedMolecule()
{
    return chem::Modify(Modification(methylene(), {{0, 1}, {0, 2}}))
        .transform(moleculeOf({letterChain(u"AKRPKC"_s), letterChain(u"CCK"_s)}, {},
                              {chem::Link(-2.0, {{0, 6}, {1, 1}})}));
}

/// A step of each kind, one that is refused, and a molecule for them.
struct Steps
{
    MoleculeEntity molecule = sharedMolecule();
    chem::Modify put{Modification(phosphorylation(), {{0, 2}})};
    chem::Unmodify take{Modification(methylene(), {{0, 1}, {0, 2}})};
    chem::EstablishLink link{group(u"H-2"_s, -2.0), {{0, 1}, {1, 2}}};
    chem::ChainFragmenter cut{{{1.0, {{}, 0, 1, 7}, 17.0}, {0, {{}, 1, 1, 4}, 0}}};
    chem::Unmodify refused{Modification(14.0, {{0, 1}})};

    QList<const chem::Transformation*> possible() const { return {&put, &take, &link, &cut}; }
};

QList<Fields> resultsOf(const Steps& steps)
{
    QList<Fields> results;
    for (const chem::Transformation* step : steps.possible())
        results.append(fieldsOf(step->transform(steps.molecule)));
    results.append(fieldsOf(thrownMessage(steps.refused, steps.molecule)));
    return results;
}

TEST(ThreadsSteps, ShareOneStepOfEachKindAndOneMolecule)
{
    EXPECT_EQ(thrownMessage(Steps().refused, sharedMolecule()), stepMessages::notFound);
    expectSameOnThreads([] { return Steps(); }, resultsOf);
}

MoleculeEntity moleculeWithHistory()
{
    const MoleculeEntity modified =
        chem::Modify(Modification(5.0, {{0, 2}})).transform(sharedMolecule());
    return chem::EstablishLink(2.0, {{0, 1}, {1, 2}}).transform(modified);
}

/// The molecule as its history makes it again from its start.
QList<Fields> replayOf(const MoleculeEntity& molecule)
{
    return {fieldsOf(replayed(molecule.transformations(), stateBefore(molecule, 0)))};
}

TEST(ThreadsSteps, ShareOneHistoryAndReplayIt)
{
    const MoleculeEntity molecule = moleculeWithHistory();
    EXPECT_EQ(differences(replayOf(molecule), QList<MoleculeEntity>{molecule}), "");
    expectSameOnThreads(moleculeWithHistory, replayOf);
}

/// A molecule with ways to clip it.
struct Clips
{
    MoleculeEntity molecule = sharedMolecule();
    QList<chem::ClipOptions> options = {
        chem::ClipOptions::createClipAll(), chem::ClipOptions::createClipByDepth(2, 2, 2, 2),
        chem::ClipOptions::createClipByResidue({u"[KR]"_s, {}}, {u"P"_s, u"(?<=[KR])(?!P)"_s})};
};

QList<Fields> clipsOf(const Clips& clips)
{
    QList<Fields> results;
    for (const chem::ClipOptions& options : clips.options) {
        const QList<MoleculeEntity> pieces = chem::generateClips(clips.molecule, nullptr, options);
        for (const MoleculeEntity& piece : pieces)
            results.append(fieldsOf(piece));
    }
    return results;
}

TEST(ThreadsSteps, ShareOneMoleculeAndItsClipOptions)
{
    // All: 11 and 5. Depth: 5 each, then 4 and 1. Rules: the first ranges, then 6 and 2 cut sides.
    EXPECT_EQ(clipsOf(Clips()).size(), 16 + 15 + 10);
    expectSameOnThreads([] { return Clips(); }, clipsOf);
}

} // namespace
