#include "TestPrinters.h"
#include <ChemicalFactory.h>

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <cmath>

using namespace Qt::StringLiterals;

namespace {

const QString averagine = u"C4.9384H7.7583N1.3577O1.4773S0.0417"_s;

chem::Molecule fromAverage(const QString& formula, double mass)
{
    return chem::defaultChemicalFactory()->moleculeBasedOnAverageMass(formula, mass);
}

chem::Molecule fromMono(const QString& formula, double mass)
{
    return chem::defaultChemicalFactory()->moleculeBasedOnMonoMass(formula, mass);
}

/// The ratio by its definition: counts as they are, atoms one by one.
double ratioOf(const QString& formula)
{
    const auto factory = chem::defaultChemicalFactory();
    double average = 0.0;
    double mono = 0.0;
    const auto composition = chem::ChemicalFactory::parseChemicalFormula(formula);
    const auto& counts = composition.elementCountMap();
    for (auto entry = counts.cbegin(); entry != counts.cend(); ++entry) {
        average += entry.value() * factory->constructMolecule(entry.key()).averageMass();
        mono += entry.value() * factory->constructMolecule(entry.key()).monoMass();
    }
    return average / mono;
}

TEST(MassRatio, EstimatesFollowTheRatioOfTheComposition)
{
    const double ratio = ratioOf(averagine);
    EXPECT_NEAR(ratio, 1.00062, 1e-4);
    EXPECT_EQ(fromMono(averagine, 1000.0).averageMass(), ratio * 1000.0);
    EXPECT_EQ(fromMono(averagine, 1000.0).monoMass(), 1000.0);
    EXPECT_EQ(fromAverage(averagine, 1000.0).monoMass(), 1000.0 / ratio);
    EXPECT_EQ(fromAverage(averagine, 1000.0).averageMass(), 1000.0);
}

// Two rows of abundance 1 make an electron's average mass twice its monoisotopic mass, so taking
// 1000 of them from hydrogen leaves 0.459 Da monoisotopic and -0.089 Da average: a ratio below 0.
TEST(MassRatio, FormulaWithoutAPositiveRatioGivesNoEstimate)
{
    for (const QString& formula : {u""_s, u"Xx5"_s, u"C0"_s, u"C-1"_s, u"C1O-1"_s, u"HE-1000"_s}) {
        SCOPED_TRACE(formula.toStdString());
        EXPECT_EQ(fromMono(formula, 1000.0).monoMass(), 1000.0);
        EXPECT_EQ(fromMono(formula, 1000.0).averageMass(), 0.0);
        EXPECT_EQ(fromAverage(formula, 1000.0).averageMass(), 1000.0);
        EXPECT_EQ(fromAverage(formula, 1000.0).monoMass(), 0.0);
    }
}

TEST(MassRatio, ElementWithOneIsotopeHasEqualMasses)
{
    EXPECT_EQ(fromMono(u"F"_s, 500.0).averageMass(), 500.0);
    EXPECT_EQ(fromAverage(u"F3"_s, 500.0).monoMass(), 500.0);
}

TEST(MassRatio, MassOfZeroStaysZero)
{
    EXPECT_EQ(fromMono(averagine, 0.0).averageMass(), 0.0);
    EXPECT_EQ(fromAverage(averagine, 0.0).monoMass(), 0.0);
}

TEST(MassRatio, CountsAreNotCut)
{
    EXPECT_EQ(fromMono(u"C0.5"_s, 100.0).averageMass(), fromMono(u"C1"_s, 100.0).averageMass());
}

RC_GTEST_PROP(MassRatioLaws, EstimateThereAndBackGivesTheMass, ())
{
    const double mass = *rc::gen::inRange(1, 1000000) / 7.0;
    const double average = fromMono(averagine, mass).averageMass();
    RC_ASSERT(std::abs(fromAverage(averagine, average).monoMass() - mass) < 1e-9 * mass);
}

// No mass times no end of atoms is no number, and that is no ratio.
TEST(MassRatio, EndlessCountOfAnUnknownElementGivesNoEstimate)
{
    for (const QString& formula : {u"CXx1e999"_s, QString(u"CXx"_s + u"9"_s.repeated(310))}) {
        const auto parsed = chem::ChemicalFactory::parseChemicalFormula(formula);
        ASSERT_TRUE(std::isinf(parsed.elementCountMap()[u"Xx"_s]));
        EXPECT_EQ(fromAverage(formula, 100.0).monoMass(), 0.0);
        EXPECT_EQ(fromMono(formula, 100.0).averageMass(), 0.0);
    }
    EXPECT_GT(fromAverage(u"CXx7"_s, 100.0).monoMass(), 99.0);
}

TEST(MassRatio, BothWaysKeepTheFormulaEvenIfItWeighsNothing)
{
    for (const QString& formula : {averagine, u"CH2"_s, u""_s, u"Xx5"_s, u"C0"_s, u"C1O-1"_s}) {
        const auto parsed = chem::ChemicalFactory::parseChemicalFormula(formula);
        EXPECT_EQ(fromAverage(formula, 1000.0).formula().elementCountMap(),
                  parsed.elementCountMap());
        EXPECT_EQ(fromMono(formula, 1000.0).formula().elementCountMap(), parsed.elementCountMap());
    }
}

// An electron and a missing one cancel to the bit, while the average mass of the first counts
// twice.
TEST(MassRatio, MonoisotopicSumOfZeroGivesNoEstimateWhateverTheAverage)
{
    EXPECT_EQ(fromMono(u"EMe"_s, 1000.0).averageMass(), 0.0);
    EXPECT_EQ(fromAverage(u"EMe"_s, 1000.0).monoMass(), 0.0);
}

} // namespace
