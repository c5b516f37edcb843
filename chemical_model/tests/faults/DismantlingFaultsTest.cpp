#include "ChildProcess.h"
#include "DeepNests.h"

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

TEST(DismantlingFaults, DeepNestsOfEachKindAreReleasedWithoutMemoryOnANormalStack)
{
    for (const deepNests::Nesting& nesting : deepNests::nestings) {
        SCOPED_TRACE(nesting.name);
        expectRelease([&nesting] { return deepNests::nestedIn(nesting); });
    }
}

} // namespace
