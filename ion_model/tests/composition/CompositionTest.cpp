#include "Composition.h"

#include "TestPrinters.h"

#include <QMap>

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <limits>

using namespace Qt::StringLiterals;

namespace ions {

namespace {

chem::ChemicalFormula chemFormula(QMap<QString, double> counts)
{
    return chem::ChemicalFormula(counts);
}

TEST(Composition, AtomsAreKnownByTheirSymbols)
{
    EXPECT_EQ(Atom::element(u"C"), (Atom{6, 0}));
    EXPECT_EQ(Atom::element(u"Og"), (Atom{118, 0}));
    EXPECT_EQ(Atom::element(u"c"), Atom());
    EXPECT_EQ(Atom::element(u"D"), Atom());
    EXPECT_EQ(Atom::element(u""), Atom());
    EXPECT_EQ(Atom::element(u"CC"), Atom());
    EXPECT_EQ((Atom{17, 37}).symbol(), u"Cl"_s);
    EXPECT_EQ(Atom().symbol(), u""_s);
    EXPECT_EQ((Atom{200, 0}).symbol(), u""_s);
}

TEST(Composition, CountsOfIsotopesAreTheirOwn)
{
    const Composition glucose = formula(u"[13C2]C4H12O6"_s);
    EXPECT_EQ(glucose.count({6, 0}), 4);
    EXPECT_EQ(glucose.count({6, 13}), 2);
    EXPECT_EQ(glucose.count({7, 0}), 0);
    EXPECT_EQ(glucose.terms().size(), 4U);
}

TEST(Composition, AddingChangesNothingWhereACountWouldNotFit)
{
    Composition composition = formula(u"CH2147483647"_s);
    const Composition before = composition;
    EXPECT_FALSE(composition.add(formula(u"CH"_s)));
    EXPECT_EQ(composition, before);
    EXPECT_FALSE(composition.add(formula(u"C2"_s), 2000000000));
    EXPECT_FALSE(composition.add(formula(u"C"_s), std::numeric_limits<qint64>::max()));
    EXPECT_FALSE(composition.add({6, 0}, std::numeric_limits<qint64>::min()));
    EXPECT_EQ(composition, before);
    EXPECT_TRUE(composition.add(formula(u"H"_s), -1));
    EXPECT_EQ(composition.count({1, 0}), 2147483646);
}

TEST(Composition, AtomsOfNoCountAreNone)
{
    EXPECT_TRUE(Composition({6, 0}, 0).isEmpty());
    EXPECT_TRUE(Composition({6, 0}, std::numeric_limits<int>::min()).isEmpty());
    Composition composition = formula(u"CH4"_s);
    EXPECT_TRUE(composition.add(formula(u"CH4"_s), -1));
    EXPECT_TRUE(composition.isEmpty());
}

TEST(Composition, LabellingTurnsTheElementAndKeepsStatedIsotopes)
{
    Composition peptide = formula(u"C6[13C]H12"_s);
    EXPECT_TRUE(peptide.label({6, 13}));
    EXPECT_EQ(peptide.toString(), u"[13C7]H12"_s);
    EXPECT_TRUE(peptide.label({1, 2}));
    EXPECT_EQ(peptide.toString(), u"[13C7][2H12]"_s);
    EXPECT_TRUE(peptide.label({7, 15}));
    EXPECT_EQ(peptide.toString(), u"[13C7][2H12]"_s);
}

TEST(Composition, FormulasOfTheFirstLibraryComeAndGo)
{
    const Composition composition = formula(u"C2[13C6]H12NO-1"_s);
    const chem::ChemicalFormula asFormula = composition.toFormula();
    EXPECT_EQ(asFormula.elementCountMap().value(u"[13C]"_s), 6.0);
    EXPECT_EQ(asFormula.elementCountMap().value(u"O"_s), -1.0);
    EXPECT_EQ(Composition::fromFormula(asFormula).value(), composition);
}

TEST(Composition, EntriesOfZeroAreNoAtoms)
{
    EXPECT_EQ(Composition::fromFormula(chemFormula({{u"C"_s, 1.0}, {u"H"_s, 0.0}})).value(),
              formula(u"C"_s));
}

TEST(Composition, FormulasThatAreNoCompositionAreRefusedAtTheirKey)
{
    const double infinite = std::numeric_limits<double>::infinity();
    for (const double count : {0.5, infinite, -infinite, 2147483648.0, -2147483648.0,
                               std::numeric_limits<double>::quiet_NaN()}) {
        const auto read = Composition::fromFormula(chemFormula({{u"C"_s, 1.0}, {u"H"_s, count}}));
        ASSERT_FALSE(read.hasValue()) << count;
        EXPECT_EQ(read.error().position, 1);
    }
    for (const QString& key :
         {u"E"_s, u"c"_s, u"13C"_s, u"[13C2]"_s, u"CH"_s, u"C2"_s, u"(C)"_s, u"D"_s, u""_s}) {
        EXPECT_FALSE(Composition::fromFormula(chemFormula({{key, 1.0}})).hasValue())
            << key.toStdString();
    }
}

RC_GTEST_PROP(Composition, SubtractingWhatWasAddedGivesTheSameComposition, (int first, int second))
{
    Composition composition({6, 0}, first % 100000);
    const Composition before = composition;
    const Composition other({1, 0}, second % 100000);
    RC_ASSERT(composition.add(other, 3));
    RC_ASSERT(composition.add(other, -3));
    RC_ASSERT(composition == before);
}

} // namespace

} // namespace ions
