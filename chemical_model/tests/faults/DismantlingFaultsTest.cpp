#include "ChildProcess.h"
#include <ChemicalModel.h>

#include <gtest/gtest.h>

#include <optional>

namespace {

using namespace faults;

using chem::Modification;
using chem::MoleculeEntity;

/// A molecule that holds `width` modifications, each of which holds such a molecule, and so on.
MoleculeEntity wideNest(int width, int depth)
{
    if (depth == 0)
        return 1.0;
    chem::StructuredMolecule molecule;
    for (int i = 0; i < width; ++i)
        molecule.modifications.append(Modification(wideNest(width, depth - 1), {}));
    return molecule;
}

/// Modifications inside one another.
MoleculeEntity deepNest(int depth)
{
    MoleculeEntity nest = 1.0;
    for (int level = 0; level < depth; ++level)
        nest = Modification(nest, {});
    return nest;
}

/// Releases a value while there is no memory at all.
std::string releaseWithoutMemory(const std::function<MoleculeEntity()>& make)
{
    const Usage before = usage();
    std::optional<MoleculeEntity> value = make();
    {
        const OutOfMemory outOfMemory(1, Shortage::Lasting);
        value.reset();
    }
    return usage().blocks == before.blocks ? "" : "blocks are alive that were not before";
}

void expectRelease(const std::function<MoleculeEntity()>& make)
{
    const SharedReport report;
    const ChildEnding ending = runInChild(report.get(), [&] { return releaseWithoutMemory(make); });
    EXPECT_EQ(ending, ChildEnding::Good) << complaintOf(*report);
}

TEST(DismantlingFaults, WideNestsAreReleasedWithoutMemory)
{
    expectRelease([] { return wideNest(30, 3); });
}

TEST(DismantlingFaults, DeepNestsAreReleasedWithoutMemoryOnANormalStack)
{
    expectRelease([] { return deepNest(200000); });
}

TEST(DismantlingFaults, DeepHistoriesAreReleasedWithoutMemoryOnANormalStack)
{
    expectRelease([] {
        MoleculeEntity molecule = 1.0;
        for (int level = 0; level < 200000; ++level) {
            chem::StructuredMolecule next;
            next.transformations.append(chem::TransformationEntity(chem::Modify(0), molecule));
            molecule = std::move(next);
        }
        return molecule;
    });
}

} // namespace
