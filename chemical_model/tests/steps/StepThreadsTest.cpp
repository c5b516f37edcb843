#include "ManyThreads.h"
#include "SmallMolecules.h"
#include "TestPrinters.h"

#include <gtest/gtest.h>

#include <atomic>

/// \file
/// Steps, histories and molecules that many threads share.

using namespace Qt::StringLiterals;
using namespace smallMolecules;
using chem::Modification;
using chem::MoleculeEntity;

namespace {

/// Describes what `make` makes on many threads at once, each time anew, and counts the descriptions
/// that differ from that of a single thread.
template <typename Make, typename Describe>
int differencesInThreads(Make make, Describe describeShared)
{
    const QStringList expected = describeShared(make());
    std::atomic<int> differences = 0;
    manyThreads::atOnceOnFresh(manyThreads::longRounds, make, [&](const auto& shared) {
        differences += describeShared(shared) == expected ? 0 : 1;
    });
    return differences;
}

MoleculeEntity sharedMolecule()
{
    return chem::Modify(Modification(group(u"CH2"_s, 14.0), {{0, 1}, {0, 2}}))
        .transform(moleculeOf({letterChain(u"AKRPKC"_s), letterChain(u"CCK"_s)}, {},
                              {chem::Link(-2.0, {{0, 6}, {1, 1}})}));
}

/// A step of each kind, one that is refused, and a molecule for them.
struct Steps
{
    MoleculeEntity molecule = sharedMolecule();
    chem::Modify put{Modification(group(u"HPO3"_s, 80.0), {{0, 2}})};
    chem::Unmodify take{Modification(group(u"CH2"_s, 14.0), {{0, 1}, {0, 2}})};
    chem::EstablishLink link{group(u"H-2"_s, -2.0), {{0, 1}, {1, 2}}};
    chem::ChainFragmenter cut{{{1.0, {{}, 0, 1, 7}, 17.0}, {0, {{}, 1, 1, 4}, 0}}};
    chem::Unmodify refused{Modification(14.0, {{0, 1}})};

    QList<const chem::Transformation*> possible() const { return {&put, &take, &link, &cut}; }
};

QStringList describeResults(const Steps& steps)
{
    QStringList results;
    for (const chem::Transformation* step : steps.possible())
        results.append(describe(step->transform(steps.molecule)));
    results.append(thrownMessage(steps.refused, steps.molecule));
    return results;
}

TEST(ThreadsSteps, ShareOneStepOfEachKindAndOneMolecule)
{
    EXPECT_EQ(describeResults(Steps()).last(), u"Could not remove specified modification"_s);
    EXPECT_EQ(differencesInThreads([] { return Steps(); }, describeResults), 0);
}

MoleculeEntity moleculeWithHistory()
{
    const MoleculeEntity modified =
        chem::Modify(Modification(5.0, {{0, 2}})).transform(sharedMolecule());
    return chem::EstablishLink(2.0, {{0, 1}, {1, 2}}).transform(modified);
}

/// The molecule as its history makes it again from its start.
QStringList describeReplay(const MoleculeEntity& molecule)
{
    MoleculeEntity replayed = stateBefore(molecule, 0);
    const QList<chem::TransformationEntity> history = molecule.transformations();
    for (const chem::TransformationEntity& entry : history)
        replayed = entry.transform(replayed);
    return {describe(replayed)};
}

TEST(ThreadsSteps, ShareOneHistoryAndReplayIt)
{
    const MoleculeEntity molecule = moleculeWithHistory();
    EXPECT_EQ(describeReplay(molecule), QStringList({describe(molecule)}));
    EXPECT_EQ(differencesInThreads(moleculeWithHistory, describeReplay), 0);
}

/// A molecule with ways to clip it.
struct Clips
{
    MoleculeEntity molecule = sharedMolecule();
    QList<chem::ClipOptions> options = {
        chem::ClipOptions::createClipAll(), chem::ClipOptions::createClipByDepth(2, 2, 2, 2),
        chem::ClipOptions::createClipByResidue({u"[KR]"_s, {}}, {u"P"_s, u"(?<=[KR])(?!P)"_s})};
};

QStringList describeClips(const Clips& clips)
{
    QStringList results;
    for (const chem::ClipOptions& options : clips.options) {
        const QList<MoleculeEntity> pieces = chem::generateClips(clips.molecule, nullptr, options);
        for (const MoleculeEntity& piece : pieces)
            results.append(describe(piece));
    }
    return results;
}

TEST(ThreadsSteps, ShareOneMoleculeAndItsClipOptions)
{
    // All: 11 and 5. Depth: 5 each, then 4 and 1. Rules: the first ranges, then 6 and 2 cut sides.
    EXPECT_EQ(describeClips(Clips()).size(), 16 + 15 + 10);
    EXPECT_EQ(differencesInThreads([] { return Clips(); }, describeClips), 0);
}

} // namespace
