#include "ElementMasses.h"
#include "Logging.h"
#include "ManyThreads.h"
#include "OligoPartsOfLetters.h"
#include "PeptideParts.h"

#include <gtest/gtest.h>

#include <array>
#include <set>
#include <vector>

/// \file
/// Internals that the threads of a factory share.

using namespace Qt::StringLiterals;
using namespace oligoPartsOfLetters;
using chem::OligoUnit;
using chem::PreparedNucleotide;
using manyThreads::atOnce;
using manyThreads::atOnceOnFresh;
using manyThreads::threadCount;

namespace {

TEST(ThreadsOligoParts, GiveOneNewNucleotideToAllThatAskAtOnce)
{
    const OligoUnit unit = unitOf(u"r", u"A", u"*");
    for (int round = 0; round < manyThreads::rounds; ++round) {
        const auto parts = makeParts(u"A"_s);
        std::array<const PreparedNucleotide*, threadCount> seen{};
        atOnce([&](int thread) { seen.at(std::size_t(thread)) = parts->prepared(unit, false); });
        EXPECT_TRUE(seen[0]);
        EXPECT_EQ(std::set(seen.begin(), seen.end()).size(), 1U);
    }
}

TEST(ThreadsOligoParts, KeepOneOfEachNucleotideThatAllPrepare)
{
    const QString nucleobases = u"ABCDEFGHIJKLMNOPQRSTUVWXYZ"_s;
    const auto parts = makeParts(nucleobases);
    std::vector<std::set<const PreparedNucleotide*>> seen(threadCount);
    atOnce([&](int thread) {
        for (const bool isLast : {false, true}) {
            for (const QChar& letter : nucleobases) {
                const auto* prepared =
                    parts->prepared(unitOf({}, QStringView(&letter, 1), {}), isLast);
                if (!prepared)
                    continue; // lost a slot to another nucleotide and is read each time
                EXPECT_EQ(prepared->nucleotide.name, u"name of "_s + letter);
                seen[std::size_t(thread)].insert(prepared);
            }
        }
    });
    std::set<const PreparedNucleotide*> different;
    for (const auto& mine : seen)
        different.insert(mine.cbegin(), mine.cend());
    EXPECT_LE(different.size(), 52U);
    EXPECT_GE(different.size(), 40U);
}

TEST(ThreadsOligoParts, ReadAndFindNucleotidesOfFreshParts)
{
    const auto makeOne = [] {
        return makeParts(u"AC"_s);
    };
    atOnceOnFresh(manyThreads::rounds, makeOne, [](const auto& parts) {
        const OligoUnit unit = unitOf(u"r", u"A", u"*");
        const PreparedNucleotide* prepared = parts->prepared(unit, false);
        EXPECT_EQ(parts->preparedFor(chem::Nucleotide(prepared->nucleotide)), prepared);
        EXPECT_EQ(parts->read(unit, false).name, u"name of A"_s);
        const auto& sites = parts->sites();
        const auto breaks = sites.breaksOf(prepared->nucleotide.nucleobase, {});
        EXPECT_EQ(sites.sitesAt(sites.beforeFirst(), breaks, true).size(), 9);
    });
}

TEST(ThreadsOligoScanner, JudgesAndCutsByTablesAndByTheEngine)
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

TEST(ThreadsPeptideParts, AreReadByMoreThreadsThanThereAreCopies)
{
    const auto makeParts = [] {
        return chem::PeptidePartsByThread([] {
            return chem::PeptideParts{letters(u"GA"_s), {}, {}, {}};
        });
    };
    for (int round = 0; round < manyThreads::longRounds; ++round) {
        const auto parts = makeParts();
        atOnce([&] { EXPECT_EQ(parts.forThisThread().residues.entry(u'G').code, u"G"_s); }, 12);
    }
}

TEST(ThreadsElementMasses, AreFoundByAll)
{
    const auto makeMasses = [] {
        chem::ElementMasses masses;
        masses.add(u"C"_s, {12.0, 13.0}, {0.75, 0.25});
        masses.add(u"Xyz"_s, {5.0}, {1.0});
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
