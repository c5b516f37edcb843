#include "support/NearlyEqual.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace {

TEST(NearlyEqual, BoundIsRelativeAboveOne)
{
    EXPECT_TRUE(chem::nearlyEqual(1000.0, 1000.0000000005));
    EXPECT_FALSE(chem::nearlyEqual(1000.0, 1000.000000002));
    EXPECT_TRUE(chem::nearlyEqual(-1000.0, -1000.0000000005));
}

TEST(NearlyEqual, BoundNeverFallsBelowOneTrillionth)
{
    EXPECT_TRUE(chem::nearlyEqual(0.5, 0.5000000000005));
    EXPECT_TRUE(chem::nearlyEqual(0.0, 1e-12));
    EXPECT_TRUE(chem::nearlyEqual(-1e-12, 0.0));
    EXPECT_FALSE(chem::nearlyEqual(0.0, 1.0000001e-12));
}

TEST(NearlyEqual, NotANumberEqualsNothing)
{
    const double nan = std::nan("");
    EXPECT_FALSE(chem::nearlyEqual(nan, nan));
    EXPECT_FALSE(chem::nearlyEqual(nan, 1.0));
    EXPECT_FALSE(chem::nearlyEqual(1.0, nan));
}

} // namespace
