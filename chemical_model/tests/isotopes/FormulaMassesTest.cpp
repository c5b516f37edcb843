#include "FormulaByIsoSpec.h"
#include "RandomMolecules.h"
#include "ReferenceFigures.h"
#include "TestFormulas.h"
#include "TestPrinters.h"
#include "TestSeed.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <random>

using namespace Qt::StringLiterals;
using namespace randomMolecules;

namespace {

using chem::ChemicalFormula;
using chem::Molecule;
using Counts = QMap<QString, double>;

struct Outcome
{
    bool hasError = false;
    double mono = 77.0;
    double average = 88.0;
};

Outcome massesOf(const ChemicalFormula& formula)
{
    Outcome outcome;
    outcome.hasError = chem::defaultChemicalFactory()
                           ->calculateMassesForFormula(formula, &outcome.mono, &outcome.average)
                           .hasError();
    return outcome;
}

Outcome massesOf(const QList<QString>& elements, const QList<int>& counts)
{
    Outcome outcome;
    outcome.hasError = chem::defaultChemicalFactory()
                           ->calculateMassesForElementCountArrays(elements, counts, &outcome.mono,
                                                                  &outcome.average)
                           .hasError();
    return outcome;
}

TEST(FormulaMasses, EmptyAndUnknownElementsWeighNothingAndFail)
{
    for (const QList<QString>& elements :
         {QList<QString>(), QList<QString>({u"Xx"_s}), QList<QString>({u"Xx"_s, u""_s, u"c"_s})}) {
        const Outcome outcome = massesOf(elements, {1, 2, 3});
        EXPECT_TRUE(outcome.hasError);
        EXPECT_EQ(outcome.mono, 0.0);
        EXPECT_EQ(outcome.average, 0.0);
    }
}

TEST(FormulaMasses, UnknownElementBesideAKnownOneIsDropped)
{
    const Outcome mixed = massesOf({u"Xx"_s, u"C"_s, u"Yy"_s}, {5, 2, 7});
    const Outcome pure = massesOf({u"C"_s}, {2});
    EXPECT_FALSE(mixed.hasError);
    EXPECT_EQ(mixed.mono, pure.mono);
    EXPECT_EQ(mixed.average, pure.average);
}

TEST(FormulaMasses, ElementListedTwiceCountsTwice)
{
    const Outcome outcome = massesOf({u"C"_s, u"C"_s}, {1, 2});
    EXPECT_EQ(outcome.mono, 36.0);
}

TEST(FormulaMasses, CountsOfZeroAndBelowAndMissingCountsAddNothing)
{
    for (const int count : {0, -1, std::numeric_limits<int>::min()}) {
        const Outcome outcome = massesOf({u"C"_s, u"O"_s}, {1, count});
        EXPECT_FALSE(outcome.hasError);
        EXPECT_EQ(outcome.mono, 12.0);
    }
    EXPECT_EQ(massesOf({u"C"_s, u"O"_s}, {1}).mono, 12.0);
    EXPECT_FALSE(massesOf({u"C"_s}, {0}).hasError);
    EXPECT_EQ(massesOf({u"C"_s}, {0}).mono, 0.0);
}

TEST(FormulaMasses, FormulaOfNothingKnownWeighsNothingAndFails)
{
    for (const ChemicalFormula& formula :
         {ChemicalFormula(), formulaWith({{u"Xx"_s, 2}}), formulaWith({{u"C"_s, 0}}),
          formulaWith({{u"Xx"_s, 2}, {u"Yy"_s, -2}}), formulaWith({{u"C"_s, std::nan("")}})}) {
        const Outcome outcome = massesOf(formula);
        EXPECT_TRUE(outcome.hasError);
        EXPECT_EQ(outcome.mono, 0.0);
        EXPECT_EQ(outcome.average, 0.0);
    }
}

TEST(FormulaMasses, OneKnownElementIsEnoughWhetherGainedOrLost)
{
    for (const ChemicalFormula& formula :
         {formulaWith({{u"H"_s, 2}, {u"O"_s, 1}}), formulaWith({{u"H"_s, -2}}),
          formulaWith({{u"H"_s, 1}, {u"Xx"_s, -1}}), formulaWith({{u"Xx"_s, 1}, {u"H"_s, -1}})})
        EXPECT_FALSE(massesOf(formula).hasError);
}

TEST(FormulaMasses, LossesAreSubtractedFromGains)
{
    const Outcome gain = massesOf(formulaWith({{u"O"_s, 1}}));
    const Outcome loss = massesOf(formulaWith({{u"H"_s, 2}}));
    const Outcome both = massesOf(formulaWith({{u"H"_s, -2}, {u"O"_s, 1}}));
    EXPECT_EQ(both.mono, gain.mono - loss.mono);
    EXPECT_EQ(both.average, gain.average - loss.average);
    EXPECT_EQ(massesOf(formulaWith({{u"H"_s, -2}})).mono, 0.0 - loss.mono);
}

TEST(FormulaMasses, UnknownLossesCountAsNothing)
{
    const Outcome outcome = massesOf(formulaWith({{u"C"_s, 1}, {u"Xx"_s, -3}}));
    EXPECT_FALSE(outcome.hasError);
    EXPECT_EQ(outcome.mono, 12.0);
}

TEST(FormulaMasses, FractionsAreCutTowardZero)
{
    EXPECT_EQ(massesOf(formulaWith({{u"C"_s, 2.9}})).mono, 24.0);
    EXPECT_EQ(massesOf(formulaWith({{u"C"_s, -2.9}})).mono, -24.0);
    const Outcome half = massesOf(formulaWith({{u"C"_s, 0.5}}));
    EXPECT_EQ(half.mono, 0.0);
    EXPECT_FALSE(half.hasError);
}

TEST(FormulaMasses, CountsBeyondThirtyTwoBitsWeighNothing)
{
    for (const double count : {3e9, -3e9, 1e300, std::numeric_limits<double>::infinity()})
        EXPECT_EQ(massesOf(formulaWith({{u"C"_s, count}})).mono, 0.0) << count;
}

TEST(FormulaMasses, CountsBeyondTheLimitOfIsoSpecAreStillMultiplied)
{
    EXPECT_EQ(massesOf(formulaWith({{u"C"_s, 2147483647}})).mono, 2147483647.0 * 12.0);
    EXPECT_EQ(massesOf(formulaWith({{u"C"_s, 10485759}})).mono, 10485759.0 * 12.0);
}

// Masses have the bits of the calculation for the whole molecule.

TEST(FormulaMasses, AtomsHaveTheSameBitsOnEveryPlatform)
{
    // Taken from IsoSpec++ 2.2.1 itself on x86-64, where it rounds each product, with 17 digits.
    const QJsonArray rows = referenceRows(u"atoms.json"_s);
    ASSERT_EQ(rows.size(), 87);
    for (const auto row : rows) {
        const QString symbol = row[u"symbol"].toString();
        const Outcome atom = massesOf({symbol}, {1});
        EXPECT_EQ(atom.mono, row[u"mono"].toDouble()) << symbol.toStdString();
        EXPECT_EQ(atom.average, row[u"average"].toDouble()) << symbol.toStdString();
    }
}

TEST(FormulaMasses, BuildOfIsoSpecIsToldByOneSum)
{
    // On x86-64 Debian builds it for processors without fused multiply-add, elsewhere with it.
#if defined(__x86_64__) || defined(_M_X64)
    EXPECT_FALSE(isoSpecFusesProducts());
#elif defined(__aarch64__)
    EXPECT_TRUE(isoSpecFusesProducts());
#endif
}

TEST(FormulaMasses, AtomsOfEachElementHaveTheBitsOfAGenerator)
{
    const QStringList symbols = naturalFactory().isotopesBySymbol.keys();
    ASSERT_EQ(symbols.size(), 87);
    for (const QString& symbol : symbols) {
        for (const double count : {1.0, 2.0, 3.0})
            expectMassesOfIsoSpec(formulaWith({{symbol, count}}), naturalFactory(),
                                  massesByGenerator);
    }
}

TEST(FormulaMasses, RandomFormulasHaveTheBitsOfIsoSpec)
{
    const QStringList symbols = naturalFactory().isotopesBySymbol.keys();
    std::mt19937 random(testSeed(5));
    std::uniform_int_distribution<int> largeCount(1, 10485758);
    std::uniform_int_distribution<int> smallCount(1, 300);
    for (int round = 0; round < 20000; ++round) {
        Counts counts;
        for (int i = 0; i < 6; ++i)
            counts.insert(symbols[static_cast<qsizetype>(random() % 87)],
                          round % 2 ? largeCount(random) : smallCount(random));
        expectMassesOfIsoSpec(ChemicalFormula(counts), naturalFactory(), massesByIso);
    }
}

TEST(FormulaMasses, BiomoleculesHaveTheBitsOfAGenerator)
{
    std::mt19937 random(testSeed(6));
    std::uniform_int_distribution<int> count(1, 400);
    for (int round = 0; round < 300; ++round) {
        Counts counts = {{u"S"_s, count(random) / 40}};
        for (const QString& symbol : {u"C"_s, u"H"_s, u"N"_s, u"O"_s, u"P"_s})
            counts.insert(symbol, count(random));
        expectMassesOfIsoSpec(ChemicalFormula(counts), naturalFactory(), massesByGenerator);
    }
}

// Figures of others.

TEST(FormulaMasses, FormulasAgreeWithOtherPrograms)
{
    const QJsonArray rows = referenceRows(u"formulas.json"_s);
    ASSERT_EQ(rows.size(), 107);
    for (const QJsonValue& row : rows) {
        SCOPED_TRACE(row[u"formula"].toString().toStdString());
        const Molecule computed = molecule(row[u"formula"].toString());
        expectFigures(row[u"mono"], computed.monoMass(), row[u"monoTolerance"].toDouble());
        expectFigures(row[u"average"], computed.averageMass(), row[u"averageTolerance"].toDouble());
    }
}

TEST(FormulaMasses, PublishedMassesAreMet)
{
    const QJsonArray rows = referenceRows(u"published.json"_s);
    ASSERT_EQ(rows.size(), 8);
    for (const QJsonValue& row : rows) {
        SCOPED_TRACE(row[u"name"].toString().toStdString());
        const Molecule computed = molecule(row[u"formula"].toString());
        const bool isIon = row[u"kind"].toString() == u"MH+";
        const double mass = isIon ? computed.monoMass() + protonMass() : computed.averageMass();
        EXPECT_NEAR(mass, row[u"published"].toDouble(), row[u"tolerance"].toDouble());
    }
}

// Laws of chemistry, which know nothing of how the masses are computed.

/// The mass of the isotope of which there is most, the first one of equals.
double mostAbundantMass(const IsoSpecElement& element)
{
    const auto most = std::max_element(element.abundances.cbegin(), element.abundances.cend());
    return element.masses[most - element.abundances.cbegin()];
}

RC_GTEST_PROP(FormulaMassesLaws, MonoisotopicMassIsThatOfTheMostAbundantIsotopes, ())
{
    const Molecule any = molecule(anyFormulaText());
    const Counts& counts = any.formula().elementCountMap();
    double expected = 0.0;
    for (auto entry = counts.cbegin(); entry != counts.cend(); ++entry)
        expected += entry.value() * mostAbundantMass(naturalFactory().element(entry.key(), 1));
    RC_ASSERT(isNear(any.monoMass(), expected));
}

RC_GTEST_PROP(FormulaMassesLaws, AverageMassIsTheMeanOverTheIsotopes, ())
{
    const Molecule any = molecule(anyFormulaText());
    const Counts& counts = any.formula().elementCountMap();
    double expected = 0.0;
    for (auto entry = counts.cbegin(); entry != counts.cend(); ++entry) {
        const IsoSpecElement element = naturalFactory().element(entry.key(), 1);
        for (qsizetype i = 0; i < element.masses.size(); ++i)
            expected += entry.value() * element.masses[i] * element.abundances[i];
    }
    RC_ASSERT(isNear(any.averageMass(), expected));
}

RC_GTEST_PROP(FormulaMassesLaws, AverageMassLiesBetweenTheLightestAndTheHeaviestIsotopologue, ())
{
    const Molecule any = molecule(anyFormulaText());
    const Counts& counts = any.formula().elementCountMap();
    double lightest = 0.0;
    double heaviest = 0.0;
    for (auto entry = counts.cbegin(); entry != counts.cend(); ++entry) {
        const QList<double> masses = naturalFactory().element(entry.key(), 1).masses;
        lightest += entry.value() * *std::min_element(masses.cbegin(), masses.cend());
        heaviest += entry.value() * *std::max_element(masses.cbegin(), masses.cend());
    }
    // The table's abundances add up to 1 within some 10^-9.
    RC_ASSERT(any.averageMass() >= lightest * (1 - 1e-8));
    RC_ASSERT(any.averageMass() <= heaviest * (1 + 1e-8));
}

RC_GTEST_PROP(FormulaMassesLaws, TwoMoleculesWeighTheSumOfBoth, ())
{
    const QString one = anyFormulaText();
    const QString other = anyFormulaText();
    RC_ASSERT(isAlike(molecule(one + other), molecule(one) + molecule(other)));
}

RC_GTEST_PROP(FormulaMassesLaws, DifferenceOfTwoFormulasWeighsTheDifferenceOfTheirMasses, ())
{
    const Molecule one = molecule(anyFormulaText());
    const Molecule other = molecule(anyFormulaText());
    double mono = 0.0;
    double average = 0.0;
    naturalFactory().calculateMassesForFormula(one.formula() - other.formula(), &mono, &average);
    const double scale = 1e-11 * (1.0 + one.averageMass() + other.averageMass());
    RC_ASSERT(std::abs(mono - (one.monoMass() - other.monoMass())) <= scale);
    RC_ASSERT(std::abs(average - (one.averageMass() - other.averageMass())) <= scale);
}

RC_GTEST_PROP(FormulaMassesLaws, OrderOfTheElementsInAFormulaChangesNoMass, ())
{
    QStringList terms;
    for (int i = *rc::gen::inRange(1, 5); i > 0; --i)
        terms.append(anyFormulaText());
    const Molecule forwards = molecule(terms.join(u""_s));
    std::reverse(terms.begin(), terms.end());
    const Molecule backwards = molecule(terms.join(u""_s));
    RC_ASSERT(forwards.monoMass() == backwards.monoMass());
    RC_ASSERT(forwards.averageMass() == backwards.averageMass());
}

} // namespace
