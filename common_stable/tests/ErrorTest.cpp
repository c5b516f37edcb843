#include <Error.h>

#include <gtest/gtest.h>

#include <type_traits>
#include <utility>

namespace {

TEST(Error, NumberZeroIsSuccess)
{
    EXPECT_FALSE(zel::Error(0).hasError());
    EXPECT_FALSE(zel::Error(zel::NoError).hasError());
}

TEST(Error, EveryOtherNumberIsAFailure)
{
    EXPECT_TRUE(zel::Error(2).hasError());
    EXPECT_TRUE(zel::Error(zel::NoKnownElement).hasError());
    EXPECT_TRUE(zel::Error(1).hasError());
    EXPECT_TRUE(zel::Error(-1).hasError());
}

TEST(Error, NoKnownElementHasTheNumberTwo)
{
    EXPECT_EQ(static_cast<int>(zel::NoKnownElement), 2);
}

TEST(Error, MovingKeepsTheOutcome)
{
    zel::Error failure(zel::NoKnownElement);
    EXPECT_TRUE(zel::Error(std::move(failure)).hasError());
    zel::Error success(zel::NoError);
    EXPECT_FALSE(zel::Error(std::move(success)).hasError());
}

TEST(Error, CanBeMovedButNotCopiedOrAssigned)
{
    static_assert(std::is_move_constructible_v<zel::Error>);
    static_assert(!std::is_copy_constructible_v<zel::Error>);
    static_assert(!std::is_copy_assignable_v<zel::Error>);
    static_assert(!std::is_move_assignable_v<zel::Error>);
    static_assert(!std::is_default_constructible_v<zel::Error>);
}

} // namespace
