// The formulas of a mass beside the bare loops over counts that only count them.

#include "FormulaSearch.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <array>
#include <cmath>

namespace {

constexpr double partsPerMillion = 5.0;
constexpr std::array<ions::Atom, 5> searched = {{{16, 0}, {8, 0}, {7, 0}, {6, 0}, {1, 0}}};

/// A mass that peptides have.
double massOf(const benchmark::State& state)
{
    return double(state.range()) * 1.0005;
}

const ions::AtomMasses& natural()
{
    static const ions::AtomMasses masses;
    return masses;
}

/// How many hydrogens bring what is left to 0 within the tolerance.
int hydrogensFor(double rest, double width, double hydrogen)
{
    const double least = std::max(0.0, std::ceil((rest - width) / hydrogen));
    const double most = std::floor((rest + width) / hydrogen);
    return most >= least ? int(most - least) + 1 : 0;
}

void floorBareLoops(benchmark::State& state)
{
    std::array<double, searched.size()> masses{};
    for (std::size_t i = 0; i < searched.size(); ++i)
        masses[i] = natural().of(searched[i]).monoisotopic;
    const auto [sulfur, oxygen, nitrogen, carbon, hydrogen] = masses;
    const double mass = massOf(state);
    const double width = mass * partsPerMillion * 1e-6;
    for (auto _ : state) {
        int found = 0;
        for (double s = mass + width; s >= 0.0; s -= sulfur) {
            for (double o = s; o >= 0.0; o -= oxygen) {
                for (double n = o; n >= 0.0; n -= nitrogen) {
                    for (double c = n; c >= 0.0; c -= carbon)
                        found += hydrogensFor(c - width, width, hydrogen);
                }
            }
        }
        benchmark::DoNotOptimize(found);
    }
}
BENCHMARK(floorBareLoops)->Arg(200)->Arg(500)->Arg(1000);

void formulasOfAMass(benchmark::State& state)
{
    ions::FormulaLimits limits;
    for (const ions::Atom atom : searched)
        limits.atoms.push_back({atom});
    for (auto _ : state) {
        const auto found =
            ions::findFormulas(massOf(state), ions::ppm(partsPerMillion), limits, natural());
        benchmark::DoNotOptimize(found->matches.data());
    }
}
BENCHMARK(formulasOfAMass)->Arg(200)->Arg(500)->Arg(1000);

void averagineOfAMass(benchmark::State& state)
{
    for (auto _ : state)
        benchmark::DoNotOptimize(
            ions::averagine(massOf(state), ions::MassKind::Average, natural()));
}
BENCHMARK(averagineOfAMass)->Arg(1000)->Arg(150000);

} // namespace
