#include "IsotopePattern.h"
#include "PatternInputs.h"
#include "TestPrinters.h"
#include "TestSeed.h"
#include <zel_chemical_model/ChemicalFactory.h>

#include <gtest/gtest.h>

#include <IsoSpec++/fixedEnvelopes.h>

#include <algorithm>
#include <cmath>
#include <functional>
#include <limits>
#include <map>
#include <random>
#include <span>
#include <utility>

using namespace Qt::StringLiterals;

namespace ions {

namespace {

struct Peak
{
    double mass = 0.0;
    double share = 1.0;
};

/// Isotopes by mass and abundance, and how many there are of each.
using Isotopes = std::map<std::pair<double, double>, int>;

/// All isotopologues, one atom after the other, kept apart by how many of each isotope they hold.
/// Isotopes of one mass are the same where they have the same abundance, in whichever group.
std::vector<Peak> isotopologuesOf(const Groups& groups)
{
    std::map<Isotopes, Peak> found = {{{}, Peak()}};
    const auto addAtom = [&found](std::span<const IsotopeShare> isotopes) {
        std::map<Isotopes, Peak> more;
        for (const auto& [held, peak] : found) {
            for (const IsotopeShare& isotope : isotopes) {
                Isotopes next = held;
                ++next[{isotope.mass, isotope.abundance}];
                Peak& sum = more.try_emplace(next, Peak{0.0, 0.0}).first->second;
                sum.mass = peak.mass + isotope.mass;
                sum.share += peak.share * isotope.abundance;
            }
        }
        found = std::move(more);
    };
    for (const IsotopeGroup& group : groups) {
        for (const Composition::Term& term : group.composition.terms()) {
            for (int atom = 0; atom < term.count; ++atom)
                addAtom(group.atoms.isotopes(term.atom));
        }
    }
    std::vector<Peak> peaks;
    for (const auto& [held, peak] : found)
        peaks.push_back(peak);
    return peaks;
}

std::vector<Peak> fewestTo(double coverage, std::vector<Peak> peaks)
{
    std::sort(peaks.begin(), peaks.end(),
              [](const Peak& left, const Peak& right) { return left.share > right.share; });
    double sum = 0.0;
    std::size_t kept = 0;
    while (kept < peaks.size() && sum < coverage)
        sum += peaks[kept++].share;
    peaks.resize(kept);
    std::sort(peaks.begin(), peaks.end(),
              [](const Peak& left, const Peak& right) { return left.mass < right.mass; });
    return peaks;
}

void expectPeaks(const FineStructure& structure, const std::vector<Peak>& expected)
{
    ASSERT_EQ(structure.masses.size(), expected.size());
    ASSERT_EQ(structure.shares.size(), expected.size());
    for (std::size_t i = 0; i < expected.size(); ++i) {
        EXPECT_NEAR(structure.masses[i], expected[i].mass, 1e-9);
        EXPECT_NEAR(structure.shares[i], expected[i].share, 1e-12);
    }
}

TEST(FineStructure, SmallMoleculesHaveTheIsotopologuesThatCountingGives)
{
    const AtomMasses heavy = natural().labelled({7, 15}, 0.9).value();
    const std::vector<Groups> molecules = {
        {{formula(u"H2O"_s), natural()}},
        {{formula(u"C6H5Cl3"_s), natural()}},
        {{formula(u"S4"_s), natural()}},
        {{formula(u"SnH4"_s), natural()}},
        {{formula(u"C5H9NO"_s), natural()}, {formula(u"N3"_s), heavy}},
        {{formula(u"C4H6O"_s), natural()}, {formula(u"C3H5NO"_s), natural()}},
        {{formula(u"[13C2]D3P"_s), natural()}, {formula(u"BrF"_s), natural()}},
    };
    for (const Groups& groups : molecules) {
        const std::vector<Peak> all = isotopologuesOf(groups);
        for (const double coverage : {0.3, 0.99, 0.9999}) {
            SCOPED_TRACE(groups.front().composition.toString().toStdString());
            const auto structure = fineStructure(groups, coverage);
            expectPeaks(*structure, fewestTo(coverage, all));
            EXPECT_TRUE(structure->isComplete);
            EXPECT_GE(sumOf(structure->shares), coverage);
        }
    }
}

/// Groups with the same abundances, as the molecule and its charge carriers often have.
TEST(FineStructure, GroupsWithTheSameIsotopesAreAsOne)
{
    const IsotopeGroup half = {formula(u"C50"_s), natural()};
    const IsotopeGroup halfReadAgain = {formula(u"C50"_s), AtomMasses()};
    const Groups whole = {{formula(u"C100"_s), natural()}};
    for (const Groups& halves : {Groups{half, half}, Groups{half, halfReadAgain}}) {
        EXPECT_EQ(*fineStructure(halves, 0.99), *fineStructure(whole, 0.99));
        EXPECT_EQ(*mostAbundantMass(halves), *mostAbundantMass(whole));
    }
    EXPECT_NEAR(*mostAbundantMass(whole), 1201.003355, 1e-6);
}

TEST(FineStructure, TheCoverageIsAPartOfWhatTheAbundancesAddUpTo)
{
    const AtomMasses lacking(*chem::ChemicalFactory::construct(u"C13:0.3 C12:0.6999995"_s));
    const Groups groups = {{formula(u"C4"_s), lacking}};
    const auto structure = fineStructure(groups, largestCoverage);
    EXPECT_TRUE(structure->isComplete);
    expectPeaks(*structure, fewestTo(1.0, isotopologuesOf(groups)));
}

/// The generator's own way to a coverage, which finds the same isotopologues by a selection.
void expectPeaksOfAnotherGenerator(const QString& text)
{
    SCOPED_TRACE(text.toStdString());
    const auto structure = fineStructure(Groups{{formula(text), natural()}}, 0.999);
    auto expected =
        IsoSpec::FixedEnvelope::FromTotalProb(IsoSpec::Iso(text.toStdString()), 0.999, true);
    expected.sort_by_mass();
    ASSERT_EQ(structure->masses.size(), expected.confs_no());
    for (std::size_t i = 0; i < expected.confs_no(); ++i) {
        EXPECT_NEAR(structure->masses[i], expected.mass(i), 1e-9);
        EXPECT_NEAR(structure->shares[i], expected.prob(i), 1e-9);
    }
}

TEST(FineStructure, PeptidesHaveThePeaksOfAnotherGenerator)
{
    for (const QString& text :
         {u"C50H71N13O12"_s, u"C254H377N65O75S6"_s, u"C10H10Fe1"_s, u"C20H30Se1Br2"_s})
        expectPeaksOfAnotherGenerator(text);
}

TEST(FineStructure, RandomMoleculesHaveThePeaksOfAnotherGenerator)
{
    const QStringList others = {u"Cl"_s, u"Br"_s, u"Si"_s, u"P"_s, u"Se"_s, u"B"_s, u"K"_s};
    std::mt19937 random(testSeed(20261126));
    for (int i = 0; i < 100 && !HasFailure(); ++i) {
        QString text;
        for (const QString& symbol : {u"C"_s, u"H"_s, u"N"_s, u"O"_s, u"S"_s})
            text += symbol + QString::number(1 + random() % (symbol == u"S" ? 4 : 60));
        const QString& other = others[qsizetype(random() % std::size_t(others.size()))];
        expectPeaksOfAnotherGenerator(text + other + QString::number(1 + random() % 3));
    }
}

TEST(FineStructure, TheLimitKeepsTheMostAbundantAndTheFlagTellsIt)
{
    const Groups groups = {{formula(u"C254H377N65O75S6"_s), natural()}};
    const auto all = fineStructure(groups, 0.99);
    std::vector<double> shares = all->shares;
    std::sort(shares.begin(), shares.end(), std::greater<>());
    for (const qsizetype limit : {1, 10, 100}) {
        const auto some = fineStructure(groups, 0.99, limit);
        EXPECT_FALSE(some->isComplete);
        EXPECT_TRUE(std::is_sorted(some->masses.begin(), some->masses.end()));
        std::vector<double> kept = some->shares;
        std::sort(kept.begin(), kept.end(), std::greater<>());
        EXPECT_EQ(kept, std::vector<double>(shares.begin(), shares.begin() + limit));
    }
    const auto exactly = fineStructure(groups, 0.99, qsizetype(all->masses.size()));
    EXPECT_EQ(*exactly, *all);
}

TEST(FineStructure, BinsAreTheSumsOfTheirIsotopologues)
{
    const Groups groups = {{formula(u"C40H60N10O12S2"_s), natural()}};
    const auto structure = fineStructure(groups, 1.0 - 1e-7);
    const auto pattern = IsotopePattern::of(groups);
    for (std::size_t bin = 0; bin < pattern->shares().size(); ++bin) {
        double share = 0.0;
        double moment = 0.0;
        for (std::size_t i = 0; i < structure->masses.size(); ++i) {
            if (std::abs(structure->masses[i] - pattern->centroids()[bin]) < 0.5) {
                share += structure->shares[i];
                moment += structure->shares[i] * structure->masses[i];
            }
        }
        EXPECT_NEAR(pattern->shares()[bin], share, 2e-7);
        EXPECT_NEAR(pattern->centroids()[bin], moment / share, 1e-3);
    }
}

TEST(FineStructure, MoleculesOfOneIsotopologueHaveOnePeak)
{
    for (const QString& text : {u"P"_s, u"[13C6]"_s, u"NaF"_s}) {
        const auto structure = fineStructure(Groups{{formula(text), natural()}});
        ASSERT_EQ(structure->masses.size(), 1U);
        EXPECT_NEAR(structure->masses[0], natural().weigh(formula(text))->monoisotopic, 1e-12);
        EXPECT_NEAR(structure->shares[0], 1.0, 1e-12);
        EXPECT_TRUE(structure->isComplete);
    }
    EXPECT_EQ(fineStructure({})->masses, std::vector<double>{0.0});
}

TEST(FineStructure, MoleculesWithoutIsotopologuesAreRefused)
{
    EXPECT_EQ(fineStructure(Groups{{formula(u"CH-1"_s), natural()}}).error().position, 0);
    EXPECT_EQ(fineStructure(Groups{{formula(u"HOg"_s), natural()}}).error().position, 1);
    const auto tooMany = fineStructure(Groups{{formula(u"CH10485759"_s), natural()}});
    ASSERT_FALSE(tooMany.hasValue());
    EXPECT_EQ(tooMany.error().position, 0);
    const IsotopeGroup many = {formula(u"NH6000000"_s), natural()};
    EXPECT_EQ(fineStructure(Groups{many, many}).error().position, 2);
    EXPECT_EQ(mostAbundantMass(Groups{many, many}).error().position, 2);
    const Groups water = {{formula(u"H2O"_s), natural()}};
    EXPECT_FALSE(fineStructure(water, 1.0).hasValue());
    EXPECT_FALSE(fineStructure(water, 0.0).hasValue());
    EXPECT_FALSE(fineStructure(water, std::numeric_limits<double>::quiet_NaN()).hasValue());
    EXPECT_FALSE(fineStructure(water, 0.9, 0).hasValue());
}

TEST(FineStructure, TheMostAbundantMassIsThatOfTheHighestPeak)
{
    const AtomMasses heavy = natural().labelled({6, 13}, 0.7).value();
    const std::vector<Groups> molecules = {
        {{formula(u"C254H377N65O75S6"_s), natural()}},
        {{formula(u"C3Br4"_s), natural()}, {formula(u"C9"_s), heavy}},
        {{formula(u"Sn3"_s), natural()}},
        {{formula(u"PF5"_s), natural()}},
    };
    for (const Groups& groups : molecules) {
        const auto structure = fineStructure(groups, 0.9);
        const auto highest = std::max_element(structure->shares.begin(), structure->shares.end());
        EXPECT_NEAR(*mostAbundantMass(groups),
                    structure->masses[std::size_t(highest - structure->shares.begin())], 1e-9);
    }
    EXPECT_EQ(*mostAbundantMass({}), 0.0);
    EXPECT_FALSE(mostAbundantMass(Groups{{formula(u"C-1"_s), natural()}}).hasValue());
}

/// Isotopologues of a thousand tin atoms lie so densely that a layer of them that is two natural
/// logarithms thick would not fit in memory.
TEST(FineStructure, LargeMoleculesEndAtTheLimit)
{
    for (const QString& text : {u"C6666H10473N1833O1994S56"_s, u"Sn1000"_s}) {
        const auto structure = fineStructure(Groups{{formula(text), natural()}}, 0.9999, 1000);
        EXPECT_EQ(structure->masses.size(), 1000U);
        EXPECT_FALSE(structure->isComplete);
    }
}

} // namespace

} // namespace ions
