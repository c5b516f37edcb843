#include "support/PerThread.h"

#include "ManyThreads.h"

#include <QString>

#include <gtest/gtest.h>

#include <array>
#include <atomic>
#include <new>
#include <set>

using namespace Qt::StringLiterals;
using manyThreads::atOnce;
using manyThreads::threadCount;

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

// Threads.

TEST(PerThread, MakesOneCopyForEachThread)
{
    using Copies = chem::PerThread<int>;
    for (int round = 0; round < manyThreads::rounds; ++round) {
        const Copies copies;
        std::atomic<int> made = 0;
        std::array<const int*, threadCount> seen{};
        atOnce([&](int thread) {
            const auto make = [&made] {
                return ++made;
            };
            seen.at(std::size_t(thread)) = &copies.get(make);
            EXPECT_EQ(&copies.get(make), seen.at(std::size_t(thread)));
        });
        EXPECT_GE(made, static_cast<int>(std::set(seen.begin(), seen.end()).size()));
    }
}

TEST(PerThread, ThreadsBeyondTheCopiesShareThem)
{
    constexpr int manyMoreThreads = 80;
    const chem::PerThread<QString> copies;
    for (int round = 0; round < 3; ++round)
        atOnce([&] { EXPECT_EQ(copies.get([] { return u"made"_s; }), u"made"_s); },
               manyMoreThreads);
}

} // namespace
