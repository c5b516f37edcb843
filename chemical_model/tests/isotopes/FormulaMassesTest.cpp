#include "MessageRecorder.h"
#include "OpenFactory.h"
#include "ReferenceData.h"
#include "TestFormulas.h"
#include "TestPrinters.h"
#include "TestSeed.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>

using namespace Qt::StringLiterals;

namespace {

struct Outcome
{
    bool hasError = false;
    double mono = 77.0;
    double average = 88.0;
};

Outcome massesOf(const chem::ChemicalFormula& formula)
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

constexpr double carbon = 12.0;
constexpr double protium = 1.00782503227;

TEST(FormulaMasses, MostAbundantIsotopesMakeTheMonoisotopicMass)
{
    const Outcome methane = massesOf({u"C"_s, u"H"_s}, {1, 4});
    EXPECT_FALSE(methane.hasError);
    EXPECT_NEAR(methane.mono, carbon + 4 * protium, 1e-8);
    // Iron's most abundant isotope is the third lightest.
    EXPECT_NEAR(massesOf({u"Fe"_s}, {1}).mono, 55.9349, 1e-3);
}

TEST(FormulaMasses, AverageIsTheMeanOfTheTable)
{
    // An independent sum over the published rows, whose abundances go through no logarithm here.
    const OpenFactory factory;
    for (const QString& symbol : factory.isotopesBySymbol.keys()) {
        double mean = 0.0;
        for (const qsizetype position : factory.isotopesBySymbol.value(symbol))
            mean += factory.isotopes[position].mass * factory.isotopes[position].abundance;
        const Outcome outcome = massesOf({symbol}, {1});
        EXPECT_NEAR(outcome.average, mean, std::abs(mean) * 1e-12) << symbol.toStdString();
    }
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

TEST(FormulaMasses, FormulaFailsOnlyWhenNothingInItIsKnown)
{
    EXPECT_TRUE(massesOf(chem::ChemicalFormula()).hasError);
    EXPECT_TRUE(massesOf(formulaWith({{u"Xx"_s, 2}})).hasError);
    EXPECT_TRUE(massesOf(formulaWith({{u"Xx"_s, 2}, {u"Yy"_s, -2}})).hasError);
    EXPECT_TRUE(massesOf(formulaWith({{u"C"_s, 0}})).hasError);
    EXPECT_TRUE(massesOf(formulaWith({{u"C"_s, std::nan("")}})).hasError);
    EXPECT_FALSE(massesOf(formulaWith({{u"H"_s, 2}, {u"O"_s, 1}})).hasError);
    EXPECT_FALSE(massesOf(formulaWith({{u"H"_s, -2}})).hasError);
    EXPECT_FALSE(massesOf(formulaWith({{u"H"_s, 1}, {u"Xx"_s, -1}})).hasError);
    EXPECT_FALSE(massesOf(formulaWith({{u"Xx"_s, 1}, {u"H"_s, -1}})).hasError);
}

TEST(FormulaMasses, OutputsAreWrittenOnFailureToo)
{
    const Outcome outcome = massesOf(chem::ChemicalFormula());
    EXPECT_EQ(outcome.mono, 0.0);
    EXPECT_EQ(outcome.average, 0.0);
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

TEST(FormulaMasses, MoleculeOfUnknownElementsKeepsItsFormula)
{
    const auto molecule = chem::defaultChemicalFactory()->constructMolecule(u"Xx2Yy"_s);
    EXPECT_EQ(molecule.formula().toString(), u"Xx2Yy"_s);
    EXPECT_EQ(molecule.averageMass(), 0.0);
    EXPECT_EQ(molecule.monoMass(), 0.0);
}

TEST(FormulaMasses, MoleculeHoldsBothMassesInTheirOrder)
{
    const auto molecule = chem::defaultChemicalFactory()->constructMolecule(u"C60"_s);
    EXPECT_EQ(molecule.monoMass(), 720.0);
    EXPECT_NEAR(molecule.averageMass(), 720.649, 0.001);
}

TEST(FormulaMasses, ModificationAddsGainsAndTakesLossesAway)
{
    const auto factory = chem::defaultChemicalFactory();
    const chem::Molecule start = factory->constructMolecule(u"C6H12O6"_s);
    const chem::Molecule modified = factory->modifyMolecule(start, u"O1H(-2)"_s, 2);
    chem::Molecule expected = start;
    chem::Molecule gain = factory->constructMolecule(u"O1"_s);
    chem::Molecule loss = factory->constructMolecule(u"H2"_s);
    gain *= 2;
    loss *= 2;
    expected += gain;
    expected -= loss;
    EXPECT_EQ(modified.formula().toString(), u"C6H8O8"_s);
    EXPECT_EQ(modified.monoMass(), expected.monoMass());
    EXPECT_EQ(modified.averageMass(), expected.averageMass());
}

TEST(FormulaMasses, NegativeCountInvertsAModification)
{
    const auto factory = chem::defaultChemicalFactory();
    const chem::Molecule start = factory->constructMolecule(u"C6H12O6"_s);
    EXPECT_EQ(factory->modifyMolecule(start, u"O1H-2"_s, -1).formula().toString(), u"C6H14O5"_s);
    EXPECT_EQ(factory->modifyMolecule(start, u"O1H-2"_s, 0).monoMass(), start.monoMass());
}

TEST(FormulaMasses, ModificationIsGoodToSixDigits)
{
    const auto modified = chem::defaultChemicalFactory()->modifyMolecule({}, u"C1234567"_s, 1);
    EXPECT_EQ(modified.formula().elementCount(u"C"_s), 1234570);
}

TEST(FormulaMasses, OneOutputForBothMassesKeepsTheOneWrittenLast)
{
    const auto factory = chem::defaultChemicalFactory();
    double mass = 0.0;
    factory->calculateMassesForFormula(formulaWith({{u"C"_s, 1}}), &mass, &mass);
    EXPECT_EQ(mass, massesOf({u"C"_s}, {1}).average);
    factory->calculateMassesForElementCountArrays({u"C"_s}, {1}, &mass, &mass);
    EXPECT_EQ(mass, 12.0);
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

TEST(FormulaMasses, OneAtomOfEachElementHasTheBitsOfAGenerator)
{
    const OpenFactory factory;
    int compared = 0;
    for (const QString& symbol : factory.isotopesBySymbol.keys()) {
        for (const int count : {0, 1, 2, 3}) {
            SCOPED_TRACE(symbol.toStdString());
            const Outcome own = massesOf({symbol}, {count});
            const MassPair expected = massesByGenerator({factory.element(symbol, count)});
            EXPECT_TRUE(isMassOfIsoSpec(own.mono, expected.mono));
            EXPECT_TRUE(isMassOfIsoSpec(own.average, expected.average));
            ++compared;
        }
    }
    EXPECT_EQ(compared, 4 * 87);
}

TEST(FormulaMasses, RandomFormulasHaveTheBitsOfIsoSpec)
{
    const OpenFactory factory;
    const QStringList symbols = factory.isotopesBySymbol.keys();
    std::mt19937 random(testSeed(5));
    std::uniform_int_distribution<int> largeCount(0, 10485758);
    std::uniform_int_distribution<int> smallCount(0, 300);
    for (int round = 0; round < 20000; ++round) {
        QMap<QString, double> counts;
        for (int i = 0; i < 6; ++i)
            counts.insert(symbols[static_cast<qsizetype>(random() % 87)],
                          round % 2 ? largeCount(random) : smallCount(random));
        counts.removeIf([](auto entry) { return entry.value() == 0.0; });
        QList<IsoSpecElement> elements;
        for (auto entry = counts.cbegin(); entry != counts.cend(); ++entry)
            elements.append(factory.element(entry.key(), static_cast<int>(entry.value())));
        const Outcome own = massesOf(chem::ChemicalFormula(counts));
        const MassPair expected = massesByIso(elements);
        ASSERT_TRUE(isMassOfIsoSpec(own.mono, expected.mono));
        ASSERT_TRUE(isMassOfIsoSpec(own.average, expected.average));
    }
}

TEST(FormulaMasses, BiomoleculesHaveTheBitsOfAGenerator)
{
    const OpenFactory factory;
    std::mt19937 random(testSeed(6));
    std::uniform_int_distribution<int> count(1, 400);
    for (int round = 0; round < 300; ++round) {
        const QStringList symbols = {u"C"_s, u"H"_s, u"N"_s, u"O"_s, u"P"_s, u"S"_s};
        QList<IsoSpecElement> elements;
        QMap<QString, double> counts;
        for (const QString& symbol : symbols) {
            const int atoms = symbol == u"S" ? count(random) / 40 : count(random);
            if (atoms == 0)
                continue;
            counts.insert(symbol, atoms);
            elements.append(factory.element(symbol, atoms));
        }
        const Outcome own = massesOf(chem::ChemicalFormula(counts));
        const MassPair expected = massesByGenerator(elements);
        ASSERT_TRUE(isMassOfIsoSpec(own.mono, expected.mono));
        ASSERT_TRUE(isMassOfIsoSpec(own.average, expected.average));
    }
}

TEST(FormulaMasses, ModificationWorksOnStoredMasses)
{
    const auto factory = chem::defaultChemicalFactory();
    const chem::Molecule odd(formulaWith({{u"C"_s, 1}}), 2.5, 1.5); // carbon weighs 12
    const chem::Molecule oxygen = factory->constructMolecule(u"O"_s);
    const chem::Molecule modified = factory->modifyMolecule(odd, u"O"_s, 1);
    EXPECT_EQ(modified.averageMass(), 2.5 + oxygen.averageMass());
    EXPECT_EQ(modified.monoMass(), 1.5 + oxygen.monoMass());
}

TEST(FormulaMasses, NegativeCountInvertsTheMassesToo)
{
    const auto factory = chem::defaultChemicalFactory();
    const chem::Molecule oxygen = factory->constructMolecule(u"O1"_s);
    const chem::Molecule pair = factory->constructMolecule(u"H2"_s);
    const chem::Molecule modified = factory->modifyMolecule({}, u"O1H-2"_s, -3);
    EXPECT_EQ(modified.monoMass(), -3.0 * oxygen.monoMass() + 3.0 * pair.monoMass());
    EXPECT_EQ(modified.averageMass(), -3.0 * oxygen.averageMass() + 3.0 * pair.averageMass());
}

TEST(FormulaMasses, LossesOfAModificationAreGoodToSixDigitsToo)
{
    const auto modified = chem::defaultChemicalFactory()->modifyMolecule({}, u"C-1234567"_s, 1);
    EXPECT_EQ(modified.formula().elementCount(u"C"_s), -1234570);
    EXPECT_EQ(modified.monoMass(), -1234570.0 * 12.0);
}

TEST(FormulaMasses, EntriesOfZeroInAModificationLeaveNoTrace)
{
    const auto modified = chem::defaultChemicalFactory()->modifyMolecule({}, u"C0H1"_s, 1);
    EXPECT_EQ(modified.formula().elementCountMap(), (QMap<QString, double>{{u"H"_s, 1}}));
}

TEST(FormulaMasses, OddTextWritesNoMessage)
{
    const MessageRecorder recorder;
    const auto factory = chem::defaultChemicalFactory();
    for (const QString& text : {u""_s, u"Xx2"_s, u"?!"_s, u"C1.5"_s, u"C-1"_s, u"C1e999"_s})
        factory->constructMolecule(text);
    EXPECT_TRUE(MessageRecorder::messages().isEmpty());
}

} // namespace
