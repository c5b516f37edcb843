#include "SmallMolecules.h"

#include <gtest/gtest.h>

#include <atomic>
#include <thread>
#include <vector>

/// \file
/// Steps, histories and molecules that many threads share.

using namespace Qt::StringLiterals;
using namespace smallMolecules;
using chem::Modification;
using chem::MoleculeEntity;

namespace {

/// Runs `work` in eight threads at once and counts the texts that differ from `expected`.
template <typename Work>
int differencesInThreads(const QStringList& expected, Work work)
{
    std::atomic<int> differences = 0;
    std::vector<std::thread> threads;
    for (int i = 0; i < 8; ++i) {
        threads.emplace_back([&] {
            for (int round = 0; round < 25; ++round)
                differences += work() == expected ? 0 : 1;
        });
    }
    for (std::thread& thread : threads)
        thread.join();
    return differences;
}

MoleculeEntity sharedMolecule()
{
    return chem::Modify(Modification(group(u"CH2"_s, 14.0), {{0, 1}, {0, 2}}))
        .transform(moleculeOf({letterChain(u"AKRPKC"_s), letterChain(u"CCK"_s)}, {},
                              {chem::Link(-2.0, {{0, 6}, {1, 1}})}));
}

TEST(ThreadsSteps, ShareOneStepOfEachKindAndOneMolecule)
{
    const MoleculeEntity molecule = sharedMolecule();
    const chem::Modify put(Modification(group(u"HPO3"_s, 80.0), {{0, 2}}));
    const chem::Unmodify take(Modification(group(u"CH2"_s, 14.0), {{0, 1}, {0, 2}}));
    const chem::EstablishLink link(group(u"H-2"_s, -2.0), {{0, 1}, {1, 2}});
    const chem::ChainFragmenter cut({{1.0, {{}, 0, 1, 7}, 17.0}, {0, {{}, 1, 1, 4}, 0}});
    const chem::Unmodify refused(Modification(14.0, {{0, 1}}));

    const auto work = [&] {
        QStringList results;
        for (const chem::Transformation* step : {static_cast<const chem::Transformation*>(&put),
                                                 static_cast<const chem::Transformation*>(&take),
                                                 static_cast<const chem::Transformation*>(&link),
                                                 static_cast<const chem::Transformation*>(&cut)})
            results.append(describe(step->transform(molecule)));
        results.append(thrownMessage(refused, molecule));
        return results;
    };
    const QStringList expected = work();
    EXPECT_EQ(expected.last(), u"Could not remove specified modification"_s);
    EXPECT_EQ(differencesInThreads(expected, work), 0);
}

TEST(ThreadsSteps, ShareOneHistoryAndReplayIt)
{
    MoleculeEntity molecule = sharedMolecule();
    molecule = chem::Modify(Modification(5.0, {{0, 2}})).transform(molecule);
    molecule = chem::EstablishLink(2.0, {{0, 1}, {1, 2}}).transform(molecule);
    const QList<chem::TransformationEntity> history = molecule.transformations();
    MoleculeEntity start = stateBefore(molecule, 0);

    const auto work = [&] {
        MoleculeEntity replayed = start;
        for (const chem::TransformationEntity& entry : history)
            replayed = entry.transform(replayed);
        return QStringList({describe(replayed)});
    };
    EXPECT_EQ(differencesInThreads({describe(molecule)}, work), 0);
}

TEST(ThreadsSteps, ShareOneMoleculeAndItsClipOptions)
{
    const MoleculeEntity molecule = sharedMolecule();
    const QList<chem::ClipOptions> allOptions = {
        chem::ClipOptions::createClipAll(), chem::ClipOptions::createClipByDepth(2, 2, 2, 2),
        chem::ClipOptions::createClipByResidue({u"[KR]"_s, {}}, {u"P"_s, u"(?<=[KR])(?!P)"_s})};
    const auto work = [&] {
        QStringList results;
        for (const chem::ClipOptions& options : allOptions) {
            const QList<MoleculeEntity> clips = chem::generateClips(molecule, nullptr, options);
            for (const MoleculeEntity& clip : clips)
                results.append(describe(clip));
        }
        return results;
    };
    const QStringList expected = work();
    // All: 11 and 5. Depth: 5 each, then 4 and 1. Rules: the first ranges, then 6 and 2 cut sides.
    EXPECT_EQ(expected.size(), 16 + 15 + 10);
    EXPECT_EQ(differencesInThreads(expected, work), 0);
}

} // namespace
