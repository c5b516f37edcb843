// Matching a model against a million sorted masses at 10 ppm. The floor searches an array of
// doubles and walks the window; further measurements show what entities cost in its place.

#include "BenchmarkInputs.h"
#include <ChemicalModel.h>

#include <benchmark/benchmark.h>

#include <algorithm>
#include <vector>

namespace {

using chem::Match;
using chem::MatchingParameters;
using chem::MoleculeEntity;
using chem::ObservedMassEntity;

constexpr int massCount = 1000000;
constexpr int modelCount = 1024;
constexpr double tolerance = 10.0; // ppm

const std::vector<double>& masses()
{
    static const std::vector<double> sorted = [] {
        std::vector<double> drawn = randomMasses(massCount, 20261123);
        std::sort(drawn.begin(), drawn.end());
        return drawn;
    }();
    return sorted;
}

const QList<ObservedMassEntity>& observedMasses()
{
    static const QList<ObservedMassEntity> entities(masses().begin(), masses().end());
    return entities;
}

const std::vector<double>& modelMasses()
{
    static const std::vector<double> models = randomMasses(modelCount, 20261124);
    return models;
}

/// Runs `find` on one model after the other.
template <typename Model, typename Find>
void forEachModel(benchmark::State& state, const std::vector<Model>& models, Find find)
{
    std::size_t next = 0;
    for (auto _ : state) {
        find(models[next]);
        next = (next + 1) % models.size();
    }
}

void floorSearchDoubles(benchmark::State& state)
{
    const std::vector<double>& sorted = masses();
    forEachModel(state, modelMasses(), [&sorted](double mass) {
        const double delta = tolerance * mass / 1000000.0;
        std::vector<double> found;
        for (auto place = std::lower_bound(sorted.begin(), sorted.end(), mass - delta);
             place != sorted.end() && *place <= mass + delta; ++place)
            found.push_back(*place);
        benchmark::DoNotOptimize(found.data());
    });
}
BENCHMARK(floorSearchDoubles);

/// The same search where each measurement is an object of its own in memory.
void searchEntities(benchmark::State& state)
{
    const QList<ObservedMassEntity>& sorted = observedMasses();
    forEachModel(state, modelMasses(), [&sorted](double mass) {
        const auto isBelow = [](const ObservedMassEntity& observed, double limit) {
            return observed.mass() < limit;
        };
        const double delta = tolerance * mass / 1000000.0;
        benchmark::DoNotOptimize(
            std::lower_bound(sorted.cbegin(), sorted.cend(), mass - delta, isBelow));
    });
}
BENCHMARK(searchEntities);

/// Ten matches, as many as lie in an average window: two reference counts for each of them.
void copyMatches(benchmark::State& state)
{
    const MoleculeEntity model = 25000.0;
    const QList<ObservedMassEntity> few = observedMasses().mid(massCount / 2, 10);
    for (auto _ : state) {
        QList<Match> matches;
        matches.reserve(few.size());
        for (const ObservedMassEntity& observed : few)
            matches.append({model, observed});
        benchmark::DoNotOptimize(matches);
    }
}
BENCHMARK(copyMatches);

void matchMasses(benchmark::State& state)
{
    const QList<ObservedMassEntity>& sorted = observedMasses();
    std::vector<MoleculeEntity> models(modelMasses().begin(), modelMasses().end());
    MatchingParameters parameters;
    parameters.massTolerance = {tolerance, 1};
    forEachModel(state, models, [&](const MoleculeEntity& model) {
        benchmark::DoNotOptimize(chem::match(model, sorted, parameters));
    });
}
BENCHMARK(matchMasses);

} // namespace
