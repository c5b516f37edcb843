#include "ManyThreads.h"
#include "OligoLetters.h"
#include "isotopes/ElementMasses.h"
#include "support/Logging.h"
#include "support/PerThread.h"

#include <gtest/gtest.h>

#include <array>
#include <atomic>
#include <memory>
#include <set>

/// \file
/// Internals that the threads of a factory share.

using namespace Qt::StringLiterals;
using namespace oligoLetters;
using chem::OligoUnit;
using manyThreads::atOnce;
using manyThreads::atOnceOnFresh;
using manyThreads::threadCount;

namespace {

TEST(ThreadsPerThread, MakesOneCopyForEachThread)
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

TEST(ThreadsPerThread, ThreadsBeyondTheCopiesShareThem)
{
    constexpr int manyMoreThreads = 80;
    const chem::PerThread<QString> copies;
    for (int round = 0; round < 3; ++round)
        atOnce([&] { EXPECT_EQ(copies.get([] { return u"made"_s; }), u"made"_s); },
               manyMoreThreads);
}

TEST(ThreadsOligoNucleotides, AreFoundAndMadeByAll)
{
    const auto makeOne = [] {
        return std::make_unique<chem::OligoNucleotides>(blocks(u"AC"_s), sites());
    };
    atOnceOnFresh(manyThreads::rounds, makeOne, [](const auto& nucleotides) {
        const OligoUnit unit = unitOf(u"r", u"A", u"*");
        EXPECT_EQ(nucleotides->find(unit, false)->nucleotide.name, u"name of A"_s);
        EXPECT_EQ(nucleotides->make(unit, false).name, u"name of A"_s);
    });
}

TEST(ThreadsOligoScanner, MatchesAndSplitsByRolesAndByTheEngine)
{
    for (const QString& nucleobases : {u"ACGTé"_s, u"A-Z"_s, u"AC])([A"_s}) {
        const auto makeScanner = [&nucleobases] {
            return chem::OligoScanner({u"{"_s, u"rd"_s, nucleobases, u"*"_s, u"}"_s});
        };
        const auto isRead = [](const chem::OligoScanner& scanner) {
            return scanner.split(u"{rA*C}") && scanner.units(u"rA*C").size() == 2;
        };
        const bool expected = isRead(makeScanner());
        atOnceOnFresh(manyThreads::rounds, makeScanner, [&](const chem::OligoScanner& scanner) {
            EXPECT_EQ(scanner.matches(u"{rA*C}"), expected);
            EXPECT_EQ(isRead(scanner), expected);
        });
    }
}

TEST(ThreadsElementMasses, AreFoundByAll)
{
    const auto makeMasses = [] {
        chem::ElementMasses masses;
        masses.add(u"C"_s, {{12.0, 13.0}, {0.75, 0.25}});
        masses.add(u"Xyz"_s, {{5.0}, {1.0}});
        return masses;
    };
    atOnceOnFresh(manyThreads::rounds, makeMasses, [](const chem::ElementMasses& masses) {
        EXPECT_EQ(masses.find(u"C")->average, 12.25);
        EXPECT_EQ(masses.find(u"Xyz")->mono, 5.0);
        EXPECT_FALSE(masses.find(u"Xy"));
    });
}

TEST(ThreadsLogging, CategoryIsFoundByAll)
{
    atOnce([] {
        EXPECT_STREQ(chem::existingLoggingCategory("zel.never", QtDebugMsg)->categoryName(),
                     "zel.generic");
    });
}

} // namespace
