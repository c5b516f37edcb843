#include "RandomMolecules.h"
#include "TestFormulas.h"
#include "TestPrinters.h"
#include <ChemicalFormula.h>

#include <gtest/gtest.h>

#include <cmath>
#include <concepts>
#include <limits>
#include <type_traits>
#include <utility>

using namespace Qt::StringLiterals;
using randomMolecules::anyFormula;

namespace {

using chem::ChemicalFormula;
using Counts = QMap<QString, double>;

TEST(ChemicalFormula, StartsWithoutEntries)
{
    const ChemicalFormula formula;
    EXPECT_TRUE(formula.isEmpty());
    EXPECT_TRUE(formula.isValid());
    EXPECT_TRUE(formula.elementCountMap().isEmpty());
    EXPECT_EQ(formula.elementCount(u"C"_s), 0);
}

TEST(ChemicalFormula, SharesTheMapThatItIsMadeFrom)
{
    Counts counts = {{u"C"_s, 1.5}};
    ChemicalFormula formula(counts);
    EXPECT_TRUE(formula.elementCountMap().isSharedWith(counts));
    formula *= 2;
    EXPECT_EQ(counts.value(u"C"_s), 1.5);
    EXPECT_EQ(formula.elementCountMap().value(u"C"_s), 3.0);
}

TEST(ChemicalFormula, CopiesShareUntilOneIsWritten)
{
    const ChemicalFormula original = formulaWith({{u"C"_s, 1}});
    ChemicalFormula copy = original;
    EXPECT_TRUE(copy.elementCountMap().isSharedWith(original.elementCountMap()));
    copy += original;
    EXPECT_EQ(original.elementCount(u"C"_s), 1);
    EXPECT_EQ(copy.elementCount(u"C"_s), 2);
}

TEST(ChemicalFormula, MovedFromIsEmptyAndUsable)
{
    ChemicalFormula source = formulaWith({{u"C"_s, 1}});
    ChemicalFormula target = std::move(source);
    EXPECT_EQ(target.elementCount(u"C"_s), 1);
    EXPECT_TRUE(source.isEmpty()); // NOLINT(bugprone-use-after-move)
    source += target;
    EXPECT_EQ(source.elementCount(u"C"_s), 1);

    ChemicalFormula assigned = formulaWith({{u"H"_s, 3}});
    assigned = std::move(source);
    EXPECT_EQ(assigned.elementCount(u"C"_s), 1);
    EXPECT_EQ(assigned.elementCount(u"H"_s), 0);
    EXPECT_TRUE(source.isEmpty()); // NOLINT(bugprone-use-after-move)
    static_assert(std::is_nothrow_move_constructible_v<ChemicalFormula>);
    static_assert(std::is_nothrow_move_assignable_v<ChemicalFormula>);
}

TEST(ChemicalFormula, EntriesAreSortedCaseSensitively)
{
    const ChemicalFormula formula =
        formulaWith({{u"Na"_s, 1}, {u"c"_s, 1}, {u"H"_s, 1}, {u"Ca"_s, 1}, {u"C"_s, 1}});
    EXPECT_EQ(formula.elementCountMap().keys(),
              QStringList({u"C"_s, u"Ca"_s, u"H"_s, u"Na"_s, u"c"_s}));
}

TEST(ChemicalFormula, ZeroCountsAreEntries)
{
    const ChemicalFormula formula = formulaWith({{u"C"_s, 0}});
    EXPECT_FALSE(formula.isEmpty());
    EXPECT_TRUE(formula.isValid());
}

TEST(ChemicalFormula, IsValidAcceptsWholeNumbersThatFitAlone)
{
    const QList<std::pair<double, bool>> cases = {{0.0, true},
                                                  {-0.0, true},
                                                  {1.0, true},
                                                  {2147483647.0, true},
                                                  {2147483648.0, false},
                                                  {3e9, false},
                                                  {1.5, false},
                                                  {0.5, false},
                                                  {1e-300, false},
                                                  {-1.0, false},
                                                  {-0.5, false},
                                                  {-3e9, false},
                                                  {std::numeric_limits<double>::infinity(), false},
                                                  {-std::numeric_limits<double>::infinity(), false},
                                                  {std::nan(""), false}};
    for (const auto& [count, isValid] : cases) {
        EXPECT_EQ(formulaWith({{u"C"_s, 1}, {u"H"_s, count}}).isValid(), isValid) << count;
        EXPECT_EQ(formulaWith({{u"H"_s, count}, {u"N"_s, 1}}).isValid(), isValid) << count;
    }
}

TEST(ChemicalFormula, ElementCountCutsTowardZero)
{
    const ChemicalFormula formula = formulaWith(
        {{u"A"_s, 2.9}, {u"B"_s, -1.5}, {u"C"_s, -0.5}, {u"D"_s, 3e9}, {u"E"_s, std::nan("")}});
    EXPECT_EQ(formula.elementCount(u"A"_s), 2);
    EXPECT_EQ(formula.elementCount(u"B"_s), -1);
    EXPECT_EQ(formula.elementCount(u"C"_s), 0);
    EXPECT_EQ(formula.elementCount(u"D"_s), std::numeric_limits<int>::min());
    EXPECT_EQ(formula.elementCount(u"E"_s), std::numeric_limits<int>::min());
    EXPECT_EQ(formula.elementCount(u"a"_s), 0);
}

TEST(ChemicalFormula, AdditionCreatesMissingEntries)
{
    ChemicalFormula formula = formulaWith({{u"C"_s, 1}});
    formula += formulaWith({{u"C"_s, 0.5}, {u"H"_s, -2}});
    EXPECT_EQ(formula.elementCountMap(), Counts({{u"C"_s, 1.5}, {u"H"_s, -2}}));
    EXPECT_EQ((formulaWith({{u"C"_s, 1}}) + formulaWith({{u"N"_s, 1}})).elementCountMap(),
              Counts({{u"C"_s, 1}, {u"N"_s, 1}}));
}

TEST(ChemicalFormula, AdditionOfNegativeZeroGivesZero)
{
    ChemicalFormula formula;
    formula += formulaWith({{u"C"_s, -0.0}});
    EXPECT_FALSE(std::signbit(formula.elementCountMap().value(u"C"_s)));
}

TEST(ChemicalFormula, SubtractionMakesNegativeEntriesAndKeepsZeros)
{
    ChemicalFormula formula = formulaWith({{u"C"_s, 1}, {u"O"_s, 1}});
    formula -= formulaWith({{u"C"_s, 1}, {u"H"_s, 2}});
    EXPECT_EQ(formula.elementCountMap(), Counts({{u"C"_s, 0}, {u"H"_s, -2}, {u"O"_s, 1}}));
}

TEST(ChemicalFormula, SubtractionFromItselfLeavesZeros)
{
    ChemicalFormula formula = formulaWith({{u"C"_s, 6}, {u"H"_s, 12}});
    const ChemicalFormula& itself = formula;
    formula -= itself;
    EXPECT_FALSE(formula.isEmpty());
    EXPECT_EQ(formula.toString(), QString());
    EXPECT_EQ(formula.elementCountMap(), Counts({{u"C"_s, 0}, {u"H"_s, 0}}));
}

TEST(ChemicalFormula, AdditionToItselfDoubles)
{
    ChemicalFormula formula = formulaWith({{u"C"_s, 6}, {u"H"_s, 12}});
    const ChemicalFormula copy = formula;
    const ChemicalFormula& itself = formula;
    formula += itself;
    EXPECT_EQ(formula.elementCountMap(), Counts({{u"C"_s, 12}, {u"H"_s, 24}}));
    EXPECT_EQ(copy.elementCount(u"C"_s), 6);
}

TEST(ChemicalFormula, MultiplicationKeepsEntriesAtZero)
{
    ChemicalFormula formula = formulaWith({{u"C"_s, 1.5}, {u"H"_s, -2}});
    formula *= -2;
    EXPECT_EQ(formula.elementCountMap(), Counts({{u"C"_s, -3}, {u"H"_s, 4}}));
    formula *= 0;
    EXPECT_EQ(formula.elementCountMap(), Counts({{u"C"_s, 0}, {u"H"_s, 0}}));
    EXPECT_FALSE(formula.isEmpty());
}

TEST(ChemicalFormula, CountsAreListedBySignAndReplaceWhatWasThere)
{
    const int beyond = std::numeric_limits<int>::min(); // for what 32 bits cannot hold
    const ChemicalFormula formula = formulaWith({{u"C"_s, 2.9},
                                                 {u"H"_s, -0.5},
                                                 {u"N"_s, 0.5},
                                                 {u"O"_s, 0},
                                                 {u"S"_s, -3.7},
                                                 {u"X"_s, 3e9},
                                                 {u"Y"_s, -3e9},
                                                 {u"Z"_s, std::nan("")}});
    QList<QString> elements = {u"old"_s};
    QList<int> counts = {1, 2, 3};
    formula.positiveElementCounts(&elements, &counts);
    EXPECT_EQ(elements, QList<QString>({u"C"_s, u"N"_s, u"X"_s}));
    EXPECT_EQ(counts, QList<int>({2, 0, beyond}));
    formula.negativeElementCounts(&elements, &counts);
    EXPECT_EQ(elements, QList<QString>({u"H"_s, u"S"_s, u"Y"_s}));
    EXPECT_EQ(counts, QList<int>({0, 3, beyond}));
}

RC_GTEST_PROP(ChemicalFormulaLaws, WhatIsAddedCanBeTakenAway, ())
{
    const ChemicalFormula a = anyFormula(-1000, 1000);
    const ChemicalFormula b = anyFormula(-1000, 1000);
    RC_ASSERT((a + b - b).toString() == a.toString());
}

RC_GTEST_PROP(ChemicalFormulaLaws, OrderOfAdditionDoesNotMatter, ())
{
    const ChemicalFormula a = anyFormula(-1000, 1000);
    const ChemicalFormula b = anyFormula(-1000, 1000);
    RC_ASSERT((a + b).elementCountMap() == (b + a).elementCountMap());
}

RC_GTEST_PROP(ChemicalFormulaLaws, ThreefoldIsThreeTimesAdded, ())
{
    const ChemicalFormula a = anyFormula(-1000, 1000);
    ChemicalFormula threefold = a;
    threefold *= 3;
    RC_ASSERT(threefold.elementCountMap() == (a + a + a).elementCountMap());
}

RC_GTEST_PROP(ChemicalFormulaLaws, AddingNeverLosesAnEntry, ())
{
    const ChemicalFormula a = anyFormula(-1000, 1000);
    const ChemicalFormula b = anyFormula(-1000, 1000);
    const ChemicalFormula difference = a - b;
    for (const QString& symbol : a.elementCountMap().keys() + b.elementCountMap().keys())
        RC_ASSERT(difference.elementCountMap().contains(symbol));
}

template <typename T>
concept CanBeMultiplied = requires(T value)
{
    value * 2;
};

TEST(ChemicalFormula, CannotBeComparedOrMultipliedIntoANewFormula)
{
    static_assert(!std::equality_comparable<ChemicalFormula>);
    static_assert(!CanBeMultiplied<ChemicalFormula>);
}

} // namespace
