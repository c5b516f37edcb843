#include "structure/ResiduePosition.h"

#include "SmallMolecules.h"

#include <gtest/gtest.h>

#include <limits>

namespace {

/// A chain of two residues and one of none.
QList<chem::Chain> chains()
{
    using namespace smallMolecules;
    return {chainOf({startTerminal(), endTerminal()}), chainOf({})};
}

TEST(ResiduePosition, ExistsWhereAChainHasAResidue)
{
    EXPECT_TRUE(chem::exists(chains(), {0, 0}));
    EXPECT_TRUE(chem::exists(chains(), {0, 1}));
}

TEST(ResiduePosition, DoesNotExistBehindTheLastResidueOrChain)
{
    EXPECT_FALSE(chem::exists(chains(), {0, 2}));
    EXPECT_FALSE(chem::exists(chains(), {1, 0}));
    EXPECT_FALSE(chem::exists(chains(), {2, 0}));
    EXPECT_FALSE(chem::exists({}, {0, 0}));
}

TEST(ResiduePosition, DoesNotExistBelowZeroOrFarAway)
{
    for (const int index : {-1, std::numeric_limits<int>::min(), std::numeric_limits<int>::max()}) {
        EXPECT_FALSE(chem::exists(chains(), {index, 0})) << index;
        EXPECT_FALSE(chem::exists(chains(), {0, index})) << index;
    }
}

} // namespace
