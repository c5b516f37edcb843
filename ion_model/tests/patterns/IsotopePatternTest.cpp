#include "IsotopePattern.h"

#include "ExactPattern.h"
#include "PatternInputs.h"
#include "TestPrinters.h"
#include "TestSeed.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <random>

using namespace Qt::StringLiterals;

namespace ions {

namespace {

/// Units of averagine as a protein of this mass has them.
Composition proteinOf(double mass)
{
    const double units = mass / 111.1254;
    Composition composition;
    const std::vector<std::pair<Atom, double>> unit = {
        {{6, 0}, 4.9384}, {{1, 0}, 7.7583}, {{7, 0}, 1.3577}, {{8, 0}, 1.4773}, {{16, 0}, 0.0417}};
    for (const auto& [atom, count] : unit)
        EXPECT_TRUE(composition.add(atom, std::lround(units * count)));
    return composition;
}

/// The share that was farthest from the exact one, and the farthest centroid.
struct Deviation
{
    double share = 0.0;
    double centroid = 0.0;
};

Deviation deviationOf(const IsotopePattern& pattern, const Groups& groups)
{
    const FourierPattern exact(groups);
    Deviation deviation;
    for (std::size_t i = 0; i < pattern.shares().size(); ++i) {
        const ExactBin bin = exact.bin(pattern.firstBin() + qint64(i));
        deviation.share =
            std::max(deviation.share, std::abs(pattern.shares()[i] - double(bin.share)));
        // Below this share the sums of the second way are not exact enough.
        if (pattern.shares()[i] > 1e-9)
            deviation.centroid = std::max(deviation.centroid,
                                          std::abs(pattern.centroids()[i] - double(bin.centroid)));
    }
    return deviation;
}

void expectExact(const Groups& groups, double coverage)
{
    const auto pattern = IsotopePattern::of(groups, coverage);
    ASSERT_TRUE(pattern.hasValue()) << pattern.error().message.toStdString();
    EXPECT_GE(sumOf(pattern->shares()), coverage);
    EXPECT_TRUE(std::is_sorted(pattern->centroids().begin(), pattern->centroids().end()));
    const Deviation deviation = deviationOf(*pattern, groups);
    EXPECT_LT(deviation.share, 1e-12);
    EXPECT_LT(deviation.centroid, 5e-9);
}

TEST(IsotopePattern, BothExactWaysAgree)
{
    const Groups groups = {{formula(u"C60H90N12O15S2Br2"_s), natural()},
                           {formula(u"Sn2B3Li"_s), natural()}};
    const std::vector<ExactBin> bins = patternAtomByAtom(groups);
    const FourierPattern fourier(groups);
    int compared = 0;
    for (std::size_t i = 0; i < bins.size(); ++i) {
        if (bins[i].share < 1e-9L)
            continue;
        ++compared;
        EXPECT_NEAR(double(bins[i].share), double(fourier.bin(qint64(i)).share), 1e-15);
        EXPECT_NEAR(double(bins[i].centroid), double(fourier.bin(qint64(i)).centroid), 1e-9);
    }
    EXPECT_GT(compared, 30);
}

TEST(IsotopePattern, SmallMoleculesAreExact)
{
    const QStringList texts = {
        u"H"_s,     u"H2"_s,  u"C"_s,           u"O"_s,        u"S"_s,    u"P"_s,      u"H2O"_s,
        u"Cl"_s,    u"Br2"_s, u"CCl4"_s,        u"CBr4"_s,     u"Se"_s,   u"Se8"_s,    u"Sn"_s,
        u"Sn4"_s,   u"Pt"_s,  u"PtCl2"_s,       u"Hg"_s,       u"Hg3"_s,  u"B10H14"_s, u"Li6"_s,
        u"Fe4S4"_s, u"C60"_s, u"[13C6]H12O6"_s, u"[13C6]"_s,   u"D2O"_s,  u"Xe"_s,     u"Cd7Te9"_s,
        u"Gd3"_s,   u"Os"_s,  u"C10H10Fe"_s,    u"Ca5Mg5K5"_s, u"Si60"_s, u"Nd9"_s,    u"Ti30"_s,
    };
    for (const QString& text : texts) {
        SCOPED_TRACE(text.toStdString());
        for (const double coverage : {0.5, 0.9999, largestCoverage})
            expectExact({{formula(text), natural()}}, coverage);
    }
}

TEST(IsotopePattern, ProteinsOfAnySizeAreExact)
{
    for (int i = 0; i <= 120; ++i) {
        const double mass = 100.0 * std::pow(30000.0, i / 120.0); // 100 Da to 3 MDa
        SCOPED_TRACE(mass);
        expectExact({{proteinOf(mass), natural()}}, i % 2 == 0 ? usualCoverage : 0.999999);
    }
}

TEST(IsotopePattern, RandomMoleculesOfOddElementsAreExact)
{
    const std::vector<Atom> atoms = {{6, 0},  {1, 0},  {7, 0},  {8, 0},  {16, 0}, {34, 0},
                                     {50, 0}, {78, 0}, {80, 0}, {5, 0},  {3, 0},  {26, 0},
                                     {17, 0}, {35, 0}, {14, 0}, {6, 13}, {1, 2},  {15, 0}};
    const std::vector<int> sizes = {3, 30, 300, 3000};
    std::mt19937 random(testSeed(20261123));
    int compared = 0;
    for (int i = 0; i < 160; ++i) {
        Composition composition;
        for (int kinds = 0; kinds < 4; ++kinds) {
            const Atom atom = atoms[random() % atoms.size()];
            const int size = sizes[random() % (i < 150 ? 3 : 4)];
            ASSERT_TRUE(composition.add(atom, 1 + int(random() % unsigned(size))));
        }
        SCOPED_TRACE(composition.toString().toStdString());
        expectExact({{composition, natural()}}, usualCoverage);
        ++compared;
    }
    EXPECT_EQ(compared, 160);
}

TEST(IsotopePattern, GroupsWithTablesOfTheirOwnAreOneMolecule)
{
    const AtomMasses heavyNitrogen = natural().labelled({7, 15}, 0.987).value();
    const AtomMasses heavyCarbon = natural().labelled({6, 13}, 0.5).value();
    const AtomMasses factory(*chem::ChemicalFactory::construct(u"C13:0.99 C12:0.01"_s));
    std::mt19937 random(testSeed(20261124));
    int compared = 0;
    for (int i = 0; i < 60; ++i) {
        const double mass = 200.0 * std::pow(1.15, i);
        const AtomMasses exchanged =
            natural().labelled({1, 2}, double(random() % 100) / 99.0).value();
        const Groups groups = {
            {proteinOf(mass), i % 3 == 0 ? heavyCarbon : heavyNitrogen},
            {formula(u"[13C6]C4H12N2O3"_s), natural()},
            {Composition({1, 0}, 1 + i), exchanged},
            {formula(u"C12H20"_s), factory},
        };
        SCOPED_TRACE(mass);
        expectExact(groups, usualCoverage);
        ++compared;
    }
    EXPECT_EQ(compared, 60);
}

/// The shares of a thousand such atoms add up to 0.9995 and must not be renormalised; the coverage
/// is a part of that.
TEST(IsotopePattern, AbundancesThatLackALittleAreTakenAsTheyAre)
{
    const AtomMasses carbon(*chem::ChemicalFactory::construct(u"C13:0.3 C12:0.6999995"_s));
    const AtomMasses oxygen(*chem::ChemicalFactory::construct(u"O16:0.5 O17:0.2 O18:0.2999995"_s));
    const Groups groups = {{formula(u"C600"_s), carbon}, {formula(u"O400P"_s), oxygen}};
    const auto pattern = IsotopePattern::of(groups, 0.999);
    const double total = std::pow(1.0 - 5e-7, 1000);
    EXPECT_GE(sumOf(pattern->shares()), 0.999 * total);
    EXPECT_LT(sumOf(pattern->shares()), total);
    const Deviation deviation = deviationOf(*pattern, groups);
    EXPECT_LT(deviation.share, 1e-12);
    EXPECT_LT(deviation.centroid, 5e-9);
    EXPECT_NEAR(sumOf(IsotopePattern::of(groups, largestCoverage)->shares()), total, 1e-8);
}

TEST(IsotopePattern, ExchangedHydrogensAreBinomial)
{
    const AtomMasses exchanged = natural().labelled({1, 2}, 0.25).value();
    const auto pattern = IsotopePattern::of(Composition({1, 0}, 4), exchanged, largestCoverage);
    ASSERT_EQ(pattern->shares().size(), 5U);
    const std::vector<double> expected = {81.0 / 256, 108.0 / 256, 54.0 / 256, 12.0 / 256,
                                          1.0 / 256};
    for (std::size_t i = 0; i < expected.size(); ++i) {
        EXPECT_NEAR(pattern->shares()[i], expected[i], 1e-15);
        EXPECT_NEAR(pattern->centroids()[i],
                    double(4 - i) * natural().of({1, 1}).average +
                        double(i) * natural().of({1, 2}).average,
                    1e-12);
    }
}

TEST(IsotopePattern, BinsCountFromTheLightestIsotopologue)
{
    const auto mercury = IsotopePattern::of(formula(u"Hg"_s), natural(), 0.5);
    EXPECT_EQ(mercury->monoisotopicBin(), 202 - 196);
    EXPECT_EQ(mercury->firstBin(), 200 - 196);
    const auto boron = IsotopePattern::of(formula(u"B"_s), natural());
    EXPECT_EQ(boron->firstBin(), 0);
    EXPECT_EQ(boron->monoisotopicBin(), 1);
    EXPECT_NEAR(boron->centroids()[1], natural().of({5, 0}).monoisotopic, 1e-12);
}

TEST(IsotopePattern, LargeMoleculesLackTheMonoisotopicBin)
{
    const auto antibody = IsotopePattern::of(proteinOf(150000.0), natural());
    EXPECT_EQ(antibody->monoisotopicBin(), 0);
    EXPECT_GT(antibody->firstBin(), 50);
}

TEST(IsotopePattern, EmptyBinsLieBetweenTheirNeighbours)
{
    const auto bromine = IsotopePattern::of(formula(u"Br2"_s), natural());
    ASSERT_EQ(bromine->shares().size(), 5U);
    EXPECT_EQ(bromine->shares()[1], 0.0);
    EXPECT_NEAR(bromine->centroids()[1], 0.5 * (bromine->centroids()[0] + bromine->centroids()[2]),
                1e-9);
}

TEST(IsotopePattern, NoShorterRunOfBinsHoldsTheCoverage)
{
    const Groups groups = {{formula(u"C20H30Sn2Br"_s), natural()}};
    const std::vector<ExactBin> bins = patternAtomByAtom(groups);
    for (const double coverage : {0.1, 0.5, 0.9, 0.99, 0.9999}) {
        const auto pattern = IsotopePattern::of(groups, coverage);
        const std::size_t size = pattern->shares().size();
        for (std::size_t first = 0; first + size - 1 <= bins.size(); ++first) {
            long double sum = 0.0L;
            for (std::size_t i = first; i < first + size - 1; ++i)
                sum += bins[i].share;
            EXPECT_LT(sum, coverage);
        }
    }
}

TEST(IsotopePattern, TheLeastCoverageIsTheHighestBin)
{
    for (const QString& text : {u"C3Sn2Te2"_s, u"C60H90N12O15S2"_s, u"Br2Cl5"_s, u"H"_s}) {
        const auto whole = IsotopePattern::of(formula(text), natural(), largestCoverage);
        const auto least = IsotopePattern::of(formula(text), natural(), 1e-300);
        ASSERT_EQ(least->shares().size(), 1U);
        EXPECT_NEAR(least->shares()[0],
                    *std::max_element(whole->shares().begin(), whole->shares().end()), 1e-9);
    }
}

TEST(IsotopePattern, TheHighestBinHasTheLargestShare)
{
    for (const QString& text : {u"CH4"_s, u"C6H4Br2"_s, u"C254H377N65O75S6"_s}) {
        const auto pattern = IsotopePattern::of(formula(text), natural()).value();
        const auto highest = std::size_t(pattern.highestBin());
        ASSERT_LT(highest, pattern.shares().size());
        for (const double share : pattern.shares())
            EXPECT_LE(share, pattern.shares()[highest]);
    }
    const AtomMasses half = natural().labelled({6, 13}, 0.5).value();
    EXPECT_EQ(IsotopePattern::of(formula(u"C"_s), half)->highestBin(), 0); // of two equal ones
    EXPECT_EQ(IsotopePattern().highestBin(), -1);
}

/// Each bin of a protein of 23 kDa sums many isotopologues; the likeliest of all is a light one.
TEST(IsotopePattern, TheHighestBinIsNotThatOfTheLikeliestIsotopologue)
{
    const Groups groups = {{formula(u"C1030H1590N270O330S7"_s), natural()}};
    const auto pattern = IsotopePattern::of(groups).value();
    const double highest = pattern.centroids()[std::size_t(pattern.highestBin())];
    EXPECT_GT(highest, *mostAbundantMass(groups) + 0.5);
}

TEST(IsotopePattern, AMixtureOfUnlabelledAndLabelledPartsKeepsBothHumps)
{
    const AtomMasses half = natural().labelled({6, 13}, 0.5).value();
    const auto pattern =
        IsotopePattern::of(Groups{{formula(u"Cl"_s), natural()}, {formula(u"C"_s), half}}, 0.9999);
    ASSERT_EQ(pattern->shares().size(), 4U);
    EXPECT_NEAR(pattern->shares()[0], pattern->shares()[1], 1e-12);
    EXPECT_NEAR(sumOf(pattern->shares()), 1.0, 1e-9);
}

TEST(IsotopePattern, SharesAreNotRenormalised)
{
    const auto pattern = IsotopePattern::of(formula(u"C60H100"_s), natural(), 0.6);
    EXPECT_GE(sumOf(pattern->shares()), 0.6);
    EXPECT_LT(sumOf(pattern->shares()), 0.95);
}

TEST(IsotopePattern, NoAtomsAreOneBinOfNoMass)
{
    for (const Groups& groups : {Groups{}, Groups{{Composition(), natural()}}}) {
        const auto pattern = IsotopePattern::of(groups);
        ASSERT_EQ(pattern->shares(), std::vector<double>{1.0});
        EXPECT_EQ(pattern->centroids(), std::vector<double>{0.0});
        EXPECT_EQ(pattern->monoisotopicBin(), 0);
    }
}

TEST(IsotopePattern, FillingAgainGivesTheSameAsAFreshOne)
{
    IsotopePattern reused;
    for (const QString& text : {u"C254H377N65O75S6"_s, u"H2O"_s, u"Sn40"_s, u"C6H12O6"_s}) {
        ASSERT_FALSE(reused.fill(Groups{{formula(text), natural()}}).has_value());
        EXPECT_EQ(reused, *IsotopePattern::of(formula(text), natural()));
    }
}

/// Arrays that were made anew for a small molecule would be small.
TEST(IsotopePattern, FillingAgainUsesTheMemoryOfLargerMolecules)
{
    const Groups large = {{proteinOf(150000.0), natural()}};
    const Groups small = {{proteinOf(1000.0), natural()}};
    IsotopePattern reused;
    for (int round = 0; round < 10; ++round)
        ASSERT_FALSE(reused.fill(large).has_value());
    const std::size_t bins = reused.shares().size();
    for (int round = 0; round < 10; ++round) {
        ASSERT_FALSE(reused.fill(small).has_value());
        EXPECT_LT(reused.shares().size(), bins / 3);
        EXPECT_GE(reused.shares().capacity(), bins);
        EXPECT_GE(reused.centroids().capacity(), bins);
    }
}

struct RefusedGroups
{
    Groups groups;
    qsizetype position;
    QString part;
};

TEST(IsotopePattern, MoleculesWithoutAPatternAreRefusedAtTheirTerm)
{
    const AtomMasses incomplete(*chem::ChemicalFactory::construct(u"C13:0.5"_s));
    const std::vector<RefusedGroups> cases = {
        {{{formula(u"CH-2"_s), natural()}}, 0, u"negative count of H"_s},
        {{{formula(u"C-1H2O"_s), natural()}}, 1, u"negative"_s},
        {{{formula(u"CH4"_s), natural()}, {formula(u"HOg"_s), natural()}}, 3, u"Og"_s},
        {{{formula(u"HC"_s), incomplete}}, 1, u"add up to 1"_s},
        {{{formula(u"HC"_s), natural()}, {formula(u"C10000000"_s), natural()}}, 2, u"100 MDa"_s},
    };
    for (const RefusedGroups& refused : cases) {
        const auto pattern = IsotopePattern::of(refused.groups);
        ASSERT_FALSE(pattern.hasValue()) << refused.part.toStdString();
        EXPECT_EQ(pattern.error().position, refused.position);
        EXPECT_TRUE(pattern.error().message.contains(refused.part))
            << pattern.error().message.toStdString();
    }
}

TEST(IsotopePattern, OtherCoveragesAreRefusedAndChangeNothing)
{
    IsotopePattern pattern = IsotopePattern::of(formula(u"H2O"_s), natural()).value();
    const IsotopePattern before = pattern;
    const Groups groups = {{formula(u"CO2"_s), natural()}};
    for (const double coverage : {0.0, -0.5, 1.0, std::nextafter(largestCoverage, 1.0), 2.0,
                                  std::numeric_limits<double>::quiet_NaN()}) {
        EXPECT_TRUE(pattern.fill(groups, coverage).has_value()) << coverage;
        EXPECT_EQ(pattern, before);
    }
    EXPECT_TRUE(pattern.fill(Groups{{formula(u"CH-4"_s), natural()}}).has_value());
    EXPECT_EQ(pattern, before);
}

Composition randomComposition()
{
    Composition composition;
    for (const QString& symbol :
         {u"H"_s, u"C"_s, u"N"_s, u"O"_s, u"S"_s, u"Cl"_s, u"Se"_s, u"Sn"_s})
        RC_ASSERT(composition.add(Atom::element(symbol), *rc::gen::inRange(0, 200)));
    return composition;
}

RC_GTEST_PROP(IsotopePattern, TheCentreIsTheAverageMass, ())
{
    const Composition composition = randomComposition();
    const auto pattern = IsotopePattern::of(composition, natural(), largestCoverage);
    double centre = 0.0;
    for (std::size_t i = 0; i < pattern->shares().size(); ++i)
        centre += pattern->shares()[i] * pattern->centroids()[i];
    centre /= sumOf(pattern->shares());
    RC_ASSERT(std::abs(centre - natural().weigh(composition)->average) < 1e-6);
}

RC_GTEST_PROP(IsotopePattern, TheFirstBinOfASmallMoleculeIsTheLightestIsotopologue, ())
{
    const Composition composition = randomComposition();
    const auto pattern = IsotopePattern::of(composition, natural(), largestCoverage);
    double lightest = 0.0;
    for (const Composition::Term& term : composition.terms())
        lightest += term.count * natural().isotopes(term.atom).front().mass;
    if (pattern->firstBin() == 0)
        RC_ASSERT(std::abs(pattern->centroids().front() - lightest) < 1e-8);
    else
        RC_ASSERT(pattern->centroids().front() > lightest);
}

RC_GTEST_PROP(IsotopePattern, OneMoleculeInGroupsHasThePatternOfTheWhole, ())
{
    const Composition first = randomComposition();
    const Composition second = randomComposition();
    Composition whole = first;
    RC_ASSERT(whole.add(second));
    const auto apart = IsotopePattern::of(Groups{{first, natural()}, {second, natural()}});
    const auto together = IsotopePattern::of(whole, natural());
    RC_ASSERT(apart->firstBin() == together->firstBin());
    RC_ASSERT(apart->shares().size() == together->shares().size());
    RC_ASSERT(apart->monoisotopicBin() == together->monoisotopicBin());
    for (std::size_t i = 0; i < apart->shares().size(); ++i) {
        RC_ASSERT(std::abs(apart->shares()[i] - together->shares()[i]) < 1e-10);
        RC_ASSERT(std::abs(apart->centroids()[i] - together->centroids()[i]) < 1e-8);
    }
}

} // namespace

} // namespace ions
