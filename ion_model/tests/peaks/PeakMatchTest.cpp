#include "PeakMatch.h"

#include "TestSeed.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <random>

namespace ions {

namespace {

const double infinity = std::numeric_limits<double>::infinity();
const double nan = std::numeric_limits<double>::quiet_NaN();

using Places = std::vector<std::size_t>;

/// The slow second way: every peak asked whether it is accepted.
Places acceptedPeaks(const std::vector<double>& peaks, double ion, const Tolerance& tolerance)
{
    Places places;
    for (std::size_t peak = 0; peak < peaks.size(); ++peak) {
        if (tolerance.accepts(peaks[peak], ion))
            places.push_back(peak);
    }
    return places;
}

Places placesIn(const PeakRange& range)
{
    Places places;
    for (std::size_t peak = range.first; peak < range.last; ++peak)
        places.push_back(peak);
    EXPECT_EQ(range.size(), places.size());
    EXPECT_EQ(range.isEmpty(), places.empty());
    return places;
}

std::vector<PeakRange> rangesOf(const std::vector<double>& peaks, const std::vector<double>& ions,
                                const Tolerance& tolerance)
{
    std::vector<PeakRange> ranges(3, {5, 6});
    peaksAround(peaks, ions, tolerance, &ranges);
    return ranges;
}

/// Ascending values on a grid of eighths, so that equal ones and exact hits of an end are many.
std::vector<double> randomPeaks(std::mt19937& random, std::size_t most)
{
    std::vector<double> peaks(random() % (most + 1));
    for (double& peak : peaks)
        peak = 0.125 * double(random() % 400);
    std::sort(peaks.begin(), peaks.end());
    return peaks;
}

const std::vector<Tolerance>& tolerances()
{
    static const std::vector<Tolerance> all = {
        Tolerance(), daltons(0.125), daltons(3.0), ppm(10),           ppm(5000),
        ppm(999999), ppm(1000000),   ppm(3000000), daltons(infinity), ppm(infinity)};
    return all;
}

TEST(PeakMatch, TheIntervalIsClosedAndHoldsEqualPeaks)
{
    const std::vector<double> peaks = {1.0, 2.0, 2.0, 2.0, 2.5, 3.0};
    EXPECT_EQ(peaksAround(peaks, 2.0, Tolerance()), (PeakRange{1, 4}));
    EXPECT_EQ(peaksAround(peaks, 2.0, daltons(0.5)), (PeakRange{1, 5}));
    EXPECT_EQ(peaksAround(peaks, 2.5, daltons(0.5)), (PeakRange{1, 6}));
    EXPECT_EQ(peaksAround(peaks, 2.25, daltons(0.125)), (PeakRange{4, 4}));
    EXPECT_EQ(peaksAround(peaks, 9.0, daltons(1.0)), (PeakRange{6, 6}));
    EXPECT_EQ(peaksAround(peaks, -9.0, daltons(1.0)), (PeakRange{0, 0}));
    EXPECT_EQ(peaksAround({}, 2.0, daltons(1.0)), PeakRange());
}

TEST(PeakMatch, PartsPerMillionAreOfTheIon)
{
    const std::vector<double> peaks = {999.9899, 999.99, 1000.0, 1000.01, 1000.0101};
    EXPECT_EQ(peaksAround(peaks, 1000.0, ppm(10)), (PeakRange{1, 4}));
}

TEST(PeakMatch, NotANumberMatchesNothing)
{
    const std::vector<double> peaks = {1.0, 2.0};
    for (const Tolerance& tolerance : tolerances()) {
        EXPECT_EQ(peaksAround(peaks, nan, tolerance), PeakRange());
        EXPECT_EQ(rangesOf(peaks, {nan}, tolerance), std::vector<PeakRange>(1));
    }
}

TEST(PeakMatch, InfiniteIonsStandInFrontOfAllPeaksOrBehind)
{
    const std::vector<double> peaks = {1.0, 2.0};
    for (const Tolerance& tolerance : tolerances()) {
        EXPECT_EQ(peaksAround(peaks, infinity, tolerance), (PeakRange{2, 2}));
        EXPECT_EQ(peaksAround(peaks, -infinity, tolerance), (PeakRange{0, 0}));
        EXPECT_EQ(rangesOf(peaks, {infinity, -infinity}, tolerance),
                  (std::vector<PeakRange>{{2, 2}, {0, 0}}));
    }
    EXPECT_EQ(peaksAround(std::vector<double>{1.0, infinity}, infinity, ppm(10)),
              (PeakRange{1, 1}));
}

/// Every array of up to four peaks and every two ions in any order, infinities among them.
TEST(PeakMatch, AllSmallWorldsGiveTheAcceptedPeaks)
{
    const std::vector<double> values = {-infinity, -1.0, 0.0, 1.0, 1.5, infinity};
    const std::vector<double> masses = {-infinity, -1.0, 0.0, 1.0, 1.25, infinity, nan};
    std::vector<std::vector<double>> worlds = {{}};
    for (std::size_t i = 0; i < worlds.size(); ++i) {
        for (const double value : values) {
            if (worlds[i].size() < 4 && (worlds[i].empty() || worlds[i].back() <= value)) {
                worlds.push_back(worlds[i]);
                worlds.back().push_back(value);
            }
        }
    }
    ASSERT_EQ(worlds.size(), 210U);
    for (const std::vector<double>& peaks : worlds) {
        for (const Tolerance& tolerance : tolerances()) {
            for (std::size_t i = 0; i < masses.size() * masses.size(); ++i) {
                const std::vector<double> ions = {masses[i % masses.size()],
                                                  masses[i / masses.size()]};
                const std::vector<PeakRange> ranges = rangesOf(peaks, ions, tolerance);
                ASSERT_EQ(ranges.size(), ions.size());
                for (std::size_t ion = 0; ion < ions.size(); ++ion) {
                    const Places accepted = acceptedPeaks(peaks, ions[ion], tolerance);
                    ASSERT_EQ(placesIn(ranges[ion]), accepted) << ions[ion];
                    ASSERT_EQ(placesIn(peaksAround(peaks, ions[ion], tolerance)), accepted);
                }
            }
        }
    }
}

TEST(PeakMatch, RandomSpectraGiveTheAcceptedPeaks)
{
    std::mt19937 random(testSeed(20261122));
    std::size_t matched = 0;
    for (int i = 0; i < 500; ++i) {
        const std::vector<double> peaks = randomPeaks(random, 200);
        std::vector<double> ions = randomPeaks(random, 100);
        if (i % 2 == 0)
            std::shuffle(ions.begin(), ions.end(), random);
        const Tolerance tolerance = tolerances()[std::size_t(i) % tolerances().size()];
        const std::vector<PeakRange> ranges = rangesOf(peaks, ions, tolerance);
        for (std::size_t ion = 0; ion < ions.size(); ++ion) {
            ASSERT_EQ(placesIn(ranges[ion]), acceptedPeaks(peaks, ions[ion], tolerance));
            ASSERT_EQ(ranges[ion], peaksAround(peaks, ions[ion], tolerance));
            matched += ranges[ion].size();
        }
    }
    EXPECT_GT(matched, 10000U);
}

/// What is found is open then, but no place outside the array is.
TEST(PeakMatch, PeaksInAnyOrderStayInsideTheArray)
{
    std::mt19937 random(testSeed(8));
    std::vector<double> peaks = {5.0, nan, 1.0, infinity, 3.0, nan, nan, -infinity, 2.0, 2.0};
    PeakMatches matches;
    for (int i = 0; i < 300; ++i) {
        std::shuffle(peaks.begin(), peaks.end(), random);
        for (const double ion : {nan, -infinity, 0.0, 1.0, 2.0, 3.0, 5.0, 9.0, infinity}) {
            for (const Tolerance& tolerance : tolerances()) {
                const PeakRange range = peaksAround(peaks, ion, tolerance);
                ASSERT_LE(range.first, range.last);
                ASSERT_LE(range.last, peaks.size());
                matchPeaks(peaks, {}, std::vector<double>{ion, 2.0, ion}, tolerance,
                           PeakChoice::MostIntense, &matches);
                for (const std::size_t peak : matches.peaks)
                    ASSERT_LT(peak, peaks.size());
            }
        }
    }
}

TEST(PeakMatch, AllPairsComeByIonThenByPeak)
{
    const std::vector<double> peaks = {1.0, 1.1, 2.0, 3.0};
    PeakMatches matches;
    matches.ions = {9, 9, 9};
    matchPeaks(peaks, {}, std::vector<double>{3.0, 1.0, 5.0}, daltons(0.2), PeakChoice::All,
               &matches);
    EXPECT_EQ(matches.ions, (Places{0, 1, 1}));
    EXPECT_EQ(matches.peaks, (Places{3, 0, 1}));
    EXPECT_EQ(matches.size(), 3U);
}

TEST(PeakMatch, TheNearestOfTwoEquallyFarIsTheLower)
{
    const std::vector<double> peaks = {1.0, 1.25, 1.75, 2.0, 2.0};
    const std::vector<double> ions = {1.5, 1.8, 2.1, 1.0, 0.5};
    PeakMatches matches;
    matchPeaks(peaks, {}, ions, daltons(0.3), PeakChoice::Nearest, &matches);
    EXPECT_EQ(matches.ions, (Places{0, 1, 2, 3}));
    EXPECT_EQ(matches.peaks, (Places{1, 2, 3, 0}));
}

TEST(PeakMatch, TheMostIntenseOfEqualsIsTheLower)
{
    const std::vector<double> peaks = {1.0, 1.1, 1.2, 2.0, 2.1, 3.0, 3.1};
    const std::vector<double> intensities = {5.0, 7.0, 7.0, nan, 1.0, nan};
    PeakMatches matches;
    matchPeaks(peaks, intensities, std::vector<double>{1.1, 2.05, 3.05}, daltons(0.2),
               PeakChoice::MostIntense, &matches);
    EXPECT_EQ(matches.ions, (Places{0, 1, 2}));
    EXPECT_EQ(matches.peaks, (Places{1, 4, 6})); // a missing intensity is 0, NaN is less
}

/// Choices are drawn from the pairs of All, one an ion that has any.
TEST(PeakMatch, ChoicesAreOneOfAllPairsOfAnIon)
{
    std::mt19937 random(testSeed(9));
    PeakMatches one;
    for (int i = 0; i < 200; ++i) {
        const std::vector<double> peaks = randomPeaks(random, 150);
        const std::vector<double> ions = randomPeaks(random, 50);
        std::vector<double> intensities(peaks.size());
        for (double& intensity : intensities)
            intensity = double(random() % 5);
        for (const PeakChoice choice : {PeakChoice::Nearest, PeakChoice::MostIntense}) {
            matchPeaks(peaks, intensities, ions, daltons(0.5), choice, &one);
            Places expectedIons;
            Places expectedPeaks;
            for (std::size_t ion = 0; ion < ions.size(); ++ion) {
                const Places accepted = acceptedPeaks(peaks, ions[ion], daltons(0.5));
                const auto rank = [&](std::size_t peak) {
                    return choice == PeakChoice::Nearest ? std::abs(peaks[peak] - ions[ion])
                                                         : -intensities[peak];
                };
                const auto best = std::min_element(
                    accepted.begin(), accepted.end(),
                    [&](std::size_t left, std::size_t right) { return rank(left) < rank(right); });
                if (best == accepted.end())
                    continue;
                expectedIons.push_back(ion);
                expectedPeaks.push_back(*best);
            }
            ASSERT_EQ(one.ions, expectedIons);
            ASSERT_EQ(one.peaks, expectedPeaks);
        }
    }
}

TEST(PeakMatch, AScoreIsTheLogarithmsOfFactorialsAndOfSums)
{
    EXPECT_EQ(matchScore({}, {}), 0.0);
    EXPECT_NEAR(matchScore({4, 99.0}, {3, 0.0}), std::log(24.0) + std::log(6.0) + std::log(100.0),
                1e-12);
    EXPECT_NEAR(matchScore({0, 0.0}, {1, 9.0}), std::log(10.0), 1e-12);
}

/// Logarithms added one by one share nothing with a product or Stirling's series.
TEST(PeakMatch, FactorialsOfAnySizeAreRight)
{
    long double expected = 0.0L;
    for (std::size_t count = 1; count <= 5000; ++count) {
        expected += std::log(static_cast<long double>(count));
        const double score = matchScore({count, 0.0}, {0, 0.0});
        ASSERT_NEAR(score, double(expected), 1e-12 * std::max(1.0, double(expected))) << count;
    }
}

TEST(PeakMatch, SumsThatAreNoneCountAsZero)
{
    EXPECT_EQ(matchScore({2, nan}, {0, -5.0}), std::log(2.0));
    EXPECT_EQ(matchScore({0, infinity}, {0, 0.0}), infinity);
}

} // namespace

} // namespace ions
