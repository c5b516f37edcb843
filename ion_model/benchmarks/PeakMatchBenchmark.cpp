// Masses among peaks, beside the two binary searches of the standard library.

#include "PeakMatch.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <random>

using namespace ions;

namespace {

std::vector<double> randomMasses(std::size_t count, unsigned seed)
{
    std::mt19937 random(seed);
    std::uniform_real_distribution<double> mass(100.0, 2000.0);
    std::vector<double> masses(count);
    for (double& m : masses)
        m = mass(random);
    return masses;
}

std::vector<double> ascendingMasses(std::size_t count, unsigned seed)
{
    std::vector<double> masses = randomMasses(count, seed);
    std::sort(masses.begin(), masses.end());
    return masses;
}

constexpr std::size_t queryCount = 10000;

/// The floor of one mass: the standard's two searches.
void floorTwoSearches(benchmark::State& state)
{
    const auto peaks = ascendingMasses(std::size_t(state.range(0)), 1);
    const auto queries = randomMasses(queryCount, 2);
    for (auto _ : state) {
        for (const double query : queries) {
            const auto first = std::lower_bound(peaks.begin(), peaks.end(), query * (1.0 - 1e-5));
            const auto last = std::upper_bound(peaks.begin(), peaks.end(), query * (1.0 + 1e-5));
            benchmark::DoNotOptimize(first);
            benchmark::DoNotOptimize(last);
        }
    }
    state.SetItemsProcessed(state.iterations() * qint64(queryCount));
}
BENCHMARK(floorTwoSearches)->Arg(1000)->Arg(1000000)->ThreadRange(1, 2);

void oneMass(benchmark::State& state)
{
    const auto peaks = ascendingMasses(std::size_t(state.range(0)), 1);
    const auto queries = randomMasses(queryCount, 2);
    for (auto _ : state) {
        for (const double query : queries)
            benchmark::DoNotOptimize(peaksAround(peaks, query, ppm(10)));
    }
    state.SetItemsProcessed(state.iterations() * qint64(queryCount));
}
BENCHMARK(oneMass)->Arg(1000)->Arg(1000000)->ThreadRange(1, 2);

/// The floor of a merge: each mass compared with the peaks by one cursor.
void floorOneCursor(benchmark::State& state)
{
    const auto peaks = ascendingMasses(std::size_t(state.range(0)), 1);
    const auto ions = ascendingMasses(std::size_t(state.range(1)), 2);
    for (auto _ : state) {
        std::size_t peak = 0;
        std::size_t matches = 0;
        for (const double ion : ions) {
            while (peak < peaks.size() && peaks[peak] < ion * (1.0 - 1e-5))
                ++peak;
            matches += peak < peaks.size() && peaks[peak] <= ion * (1.0 + 1e-5) ? 1U : 0U;
        }
        benchmark::DoNotOptimize(matches);
    }
    state.SetItemsProcessed(state.iterations() * state.range(1));
}
BENCHMARK(floorOneCursor)->Args({300, 60})->Args({3000, 3000})->Args({1000000, 1000000});

void ascendingIons(benchmark::State& state)
{
    const auto peaks = ascendingMasses(std::size_t(state.range(0)), 1);
    const auto ions = ascendingMasses(std::size_t(state.range(1)), 2);
    std::vector<PeakRange> ranges;
    for (auto _ : state) {
        peaksAround(peaks, ions, ppm(10), &ranges);
        benchmark::DoNotOptimize(ranges.data());
    }
    state.SetItemsProcessed(state.iterations() * state.range(1));
}
BENCHMARK(ascendingIons)
    ->Args({300, 60})
    ->Args({3000, 3000})
    ->Args({1000000, 1000000})
    ->Args({1000000, 1000})
    ->ThreadRange(1, 2);

void annotation(benchmark::State& state, PeakChoice choice)
{
    const auto peaks = ascendingMasses(std::size_t(state.range(0)), 1);
    const auto intensities = randomMasses(peaks.size(), 3);
    const auto ions = ascendingMasses(std::size_t(state.range(1)), 2);
    PeakMatches matches;
    for (auto _ : state) {
        matchPeaks(peaks, intensities, ions, ppm(20), choice, &matches);
        benchmark::DoNotOptimize(matches.ions.data());
    }
    state.SetItemsProcessed(state.iterations() * state.range(1));
}
BENCHMARK_CAPTURE(annotation, all, PeakChoice::All)->Args({300, 60})->Args({3000, 3000});
BENCHMARK_CAPTURE(annotation, nearest, PeakChoice::Nearest)->Args({300, 60})->Args({3000, 3000});
BENCHMARK_CAPTURE(annotation, mostIntense, PeakChoice::MostIntense)
    ->Args({300, 60})
    ->Args({3000, 3000});

void score(benchmark::State& state)
{
    for (auto _ : state) {
        for (std::size_t count = 0; count < 20; ++count)
            benchmark::DoNotOptimize(matchScore({count, 310.0}, {20 - count, 120.0}));
    }
    state.SetItemsProcessed(state.iterations() * 20);
}
BENCHMARK(score);

} // namespace
