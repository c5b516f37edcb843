#include "isotopes/ElementMasses.h"

#include "IsoSpecMasses.h"
#include "TestSeed.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>
#include <stdexcept>

using namespace Qt::StringLiterals;

namespace {

TEST(ElementMasses, FindsSymbolsOfAnyShape)
{
    chem::ElementMasses masses;
    const QStringList symbols = {u"H"_s,  u"He"_s,  u"Z"_s, u"Zz"_s, u"A"_s,
                                 u"Aa"_s, u"Hex"_s, u"h"_s, u"HE"_s, u"Ä"_s};
    double mass = 1.0;
    for (const QString& symbol : symbols)
        masses.add(symbol, {{mass++}, {1.0}});
    mass = 1.0;
    for (const QString& symbol : symbols) {
        ASSERT_NE(masses.find(symbol), nullptr) << symbol.toStdString();
        EXPECT_EQ(masses.find(symbol)->mono, mass++) << symbol.toStdString();
    }
    for (const QString& symbol : {u""_s, u"He2"_s, u"Hf"_s, u"B"_s, u"H "_s, u"é"_s, u"7"_s, u"+"_s,
                                  u"H{"_s, u"Hé"_s, u"[e"_s, u"@e"_s, u"Zé"_s, u"AĢ"_s})
        EXPECT_EQ(masses.find(symbol), nullptr) << symbol.toStdString();
}

TEST(ElementMasses, FirstOfEquallyAbundantIsotopesIsMonoisotopic)
{
    chem::ElementMasses masses;
    masses.add(u"E"_s, {{0.5, 0.25}, {1.0, 1.0}});
    EXPECT_EQ(masses.find(u"E")->mono, 0.5);
    EXPECT_EQ(masses.find(u"E")->average, 0.75);
}

TEST(ElementMasses, AbundancesWithOneLogarithmAreATie)
{
    const double abundance = 1e-5;
    const double slightlyMore = std::nextafter(abundance, 1.0);
    ASSERT_EQ(std::log(abundance), std::log(slightlyMore));
    chem::ElementMasses masses;
    masses.add(u"X"_s, {{10.0, 11.0}, {abundance, slightlyMore}});
    EXPECT_EQ(masses.find(u"X")->mono, 10.0);
    EXPECT_EQ(massesByIso({{{10.0, 11.0}, {abundance, slightlyMore}, 1}}).mono, 10.0);
}

/// Abundances of every size, among them whole percentages, that add up to 1 or less.
QList<double> anyAbundances(std::mt19937_64* random)
{
    const auto anyFraction = [random] {
        return static_cast<double>((*random)() >> 11) * 0x1p-53;
    };
    const std::size_t number = 1 + (*random)() % 10;
    QList<double> abundances;
    double rest = 1.0;
    for (std::size_t i = 0; i < number; ++i) {
        const double percent = static_cast<double>(1 + (*random)() % 9) / 100;
        const double share = (*random)() % 3 == 0 ? percent : rest * anyFraction();
        abundances.append(std::clamp(share, 1e-12, 1.0));
        rest = std::max(rest - share, 0.0);
    }
    return abundances;
}

TEST(ElementMasses, LabelledAtomsHaveTheMassesOfIsoSpec)
{
    std::mt19937_64 random(testSeed(12));
    for (int round = 0; round < 20000; ++round) {
        IsoSpecElement element;
        element.abundances = anyAbundances(&random);
        element.count = 1;
        for (qsizetype i = 0; i < element.abundances.size(); ++i)
            element.masses.append(12.0 + static_cast<double>(random() % 3000) / 1000);
        chem::ElementMasses masses;
        masses.add(u"X"_s, {element.masses, element.abundances});
        const MassPair expected = massesByIso({element});
        ASSERT_EQ(masses.find(u"X")->mono, expected.mono);
        ASSERT_TRUE(isMassOfIsoSpec(masses.find(u"X")->average, expected.average));
    }
}

TEST(ElementMasses, AbundancesOutsideTheirRangeAreRefusedWhenAsked)
{
    for (const double abundance : {0.0, -0.1, 1.0000001, std::nan(""), 1e300}) {
        chem::ElementMasses masses;
        EXPECT_NO_THROW(masses.add(u"C"_s, {{12.0, 13.0}, {0.5, abundance}}));
        ASSERT_NE(masses.find(u"C"), nullptr);
        EXPECT_THROW(masses.find(u"C")->requireUsable(), std::invalid_argument);
        EXPECT_THROW(chem::requireUsableAbundances({0.5, abundance}), std::invalid_argument);
    }
    EXPECT_NO_THROW(chem::requireUsableAbundances({1.0, 1e-300}));
    EXPECT_NO_THROW(chem::requireUsableAbundances({}));
}

TEST(ElementMasses, RefusalSaysWhatIsWrong)
{
    try {
        chem::requireUsableAbundances({0.0});
        FAIL();
    } catch (const std::invalid_argument& error) {
        EXPECT_STREQ(error.what(), "All isotope probabilities p must fulfill: 0.0 < p <= 1.0");
    }
}

} // namespace
