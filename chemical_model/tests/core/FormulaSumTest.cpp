#include "core/FormulaSum.h"

#include "TestFormulas.h"
#include "TestSeed.h"

#include <gtest/gtest.h>

#include <random>

using namespace Qt::StringLiterals;

namespace {

TEST(FormulaSum, OfNothingIsEmpty)
{
    EXPECT_TRUE(chem::FormulaSum().result().isEmpty());
}

TEST(FormulaSum, KeepsEntriesThatCancel)
{
    chem::FormulaSum sum;
    sum.add(formulaWith({{u"H"_s, 2}, {u"O"_s, 1}}));
    sum.add(formulaWith({{u"C"_s, 1}, {u"O"_s, -1}}));
    const QMap<QString, double> expected = {{u"C"_s, 1}, {u"H"_s, 2}, {u"O"_s, 0}};
    EXPECT_EQ(sum.result().elementCountMap(), expected);
}

TEST(FormulaSum, HasTheBitsOfRepeatedAddition)
{
    std::mt19937 random(testSeed(7));
    std::uniform_real_distribution<double> count(-3.0, 3.0);
    // Single letters are kept apart from other symbols, so their borders count as well.
    const QStringList symbols = {u""_s,   u"@"_s, u"A"_s, u"C"_s, u"Ca"_s, u"H"_s, u"N"_s,
                                 u"Na"_s, u"O"_s, u"S"_s, u"Z"_s, u"Zz"_s, u"["_s, u"a"_s};
    for (int round = 0; round < 500; ++round) {
        const auto anyFormula = [&] {
            QMap<QString, double> counts;
            for (const QString& symbol : symbols) {
                if (random() % 2)
                    counts.insert(symbol, count(random));
            }
            return chem::ChemicalFormula(counts);
        };
        chem::ChemicalFormula expected = anyFormula();
        chem::FormulaSum sum(expected);
        for (int addend = 0; addend < 20; ++addend) {
            const chem::ChemicalFormula formula = anyFormula();
            sum.add(formula);
            expected += formula;
        }
        ASSERT_EQ(sum.result().elementCountMap(), expected.elementCountMap());
    }
}

} // namespace
