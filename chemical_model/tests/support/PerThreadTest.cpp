#include "support/PerThread.h"

#include <gtest/gtest.h>

#include <new>

namespace {

TEST(PerThread, CopyOfAThreadIsMadeOnce)
{
    const chem::PerThread<int> copies;
    int made = 0;
    const auto make = [&made] {
        return ++made;
    };
    const int& first = copies.get(make);
    EXPECT_EQ(first, 1);
    EXPECT_EQ(&copies.get(make), &first);
    EXPECT_EQ(made, 1);
}

TEST(PerThread, CopyThatCouldNotBeMadeIsMadeByALaterCall)
{
    const chem::PerThread<int> copies;
    EXPECT_THROW(copies.get([]() -> int { throw std::bad_alloc(); }), std::bad_alloc);
    EXPECT_EQ(copies.get([] { return 7; }), 7);
}

TEST(PerThread, CopiesOfSeveralObjectsAreApart)
{
    const chem::PerThread<int> some;
    const chem::PerThread<int> others;
    EXPECT_EQ(some.get([] { return 1; }), 1);
    EXPECT_EQ(others.get([] { return 2; }), 2);
}

TEST(PerThread, NumberOfAThreadStays)
{
    EXPECT_EQ(chem::numberOfThisThread(), chem::numberOfThisThread());
}

} // namespace
