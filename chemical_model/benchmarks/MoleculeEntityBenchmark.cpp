// What it costs to hold, copy and ask any molecule, beside a shared pointer and a plain double.

#include "BenchmarkProteins.h"

#include <benchmark/benchmark.h>

#include <memory>

namespace {

void floorCopySharedPointer(benchmark::State& state)
{
    const auto original = std::make_shared<const double>(1045.5);
    for (auto _ : state) {
        std::shared_ptr<const double> copy = original;
        benchmark::DoNotOptimize(copy);
    }
}
BENCHMARK(floorCopySharedPointer);

void copyEntity(benchmark::State& state)
{
    const chem::MoleculeEntity original = benchmarkProteins::protein(500);
    for (auto _ : state) {
        chem::MoleculeEntity copy = original;
        benchmark::DoNotOptimize(copy);
    }
}
BENCHMARK(copyEntity);

void floorAllocateSharedPointer(benchmark::State& state)
{
    for (auto _ : state)
        benchmark::DoNotOptimize(std::make_shared<const double>(1045.5));
}
BENCHMARK(floorAllocateSharedPointer);

void entityOfMass(benchmark::State& state)
{
    for (auto _ : state)
        benchmark::DoNotOptimize(chem::MoleculeEntity(1045.5));
}
BENCHMARK(entityOfMass);

void massOfProtein(benchmark::State& state)
{
    const chem::MoleculeEntity protein = benchmarkProteins::protein(500);
    for (auto _ : state)
        benchmark::DoNotOptimize(protein.averageMass());
}
BENCHMARK(massOfProtein);

} // namespace
