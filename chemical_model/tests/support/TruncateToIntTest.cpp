#include "support/TruncateToInt.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace {

constexpr int lowest = std::numeric_limits<int>::min();

TEST(TruncateToInt, CutsTowardZero)
{
    EXPECT_EQ(chem::truncateToInt(2.9), 2);
    EXPECT_EQ(chem::truncateToInt(-1.5), -1);
    EXPECT_EQ(chem::truncateToInt(-0.5), 0);
    EXPECT_EQ(chem::truncateToInt(-0.0), 0);
}

TEST(TruncateToInt, HoldsTheWholeRange)
{
    EXPECT_EQ(chem::truncateToInt(2147483647.0), 2147483647);
    EXPECT_EQ(chem::truncateToInt(2147483647.99), 2147483647);
    EXPECT_EQ(chem::truncateToInt(-2147483648.0), lowest);
    EXPECT_EQ(chem::truncateToInt(-2147483648.99), lowest);
    EXPECT_EQ(chem::truncateToInt(-2147483647.5), -2147483647);
}

TEST(TruncateToInt, WhatDoesNotFitGivesTheLowestNumber)
{
    for (const double value :
         {2147483648.0, 3e9, 1e308, -2147483649.0, -3e9, std::numeric_limits<double>::infinity(),
          -std::numeric_limits<double>::infinity(), std::nan("")})
        EXPECT_EQ(chem::truncateToInt(value), lowest) << value;
}

} // namespace
