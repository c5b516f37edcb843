#include "BenchmarkProteins.h"

#include <benchmark/benchmark.h>

using namespace benchmarkProteins;

namespace {

chem::Modify locatedStep()
{
    return chem::Modify(chem::Modification(phosphorylation(), {{0, 60}}));
}

/// The floor: what it takes to read the masses of the residues once.
void residueMassSum(benchmark::State& state)
{
    const QList<chem::Chain> chains = protein(state.range(0)).chains();
    const QList<chem::MoleculeEntity> residues = chains.first().residues();
    for (auto _ : state) {
        double averageMass = 0.0;
        double monoMass = 0.0;
        for (const chem::MoleculeEntity& residue : residues) {
            averageMass += residue.averageMass();
            monoMass += residue.monoMass();
        }
        benchmark::DoNotOptimize(averageMass);
        benchmark::DoNotOptimize(monoMass);
    }
    state.SetComplexityN(state.range(0));
}

/// The part of a located step that grows with the chain: its residue list is copied, because the
/// molecule before the step keeps its own.
void residueListCopy(benchmark::State& state)
{
    const QList<chem::Chain> chains = protein(state.range(0)).chains();
    const QList<chem::MoleculeEntity> residues = chains.first().residues();
    for (auto _ : state) {
        QList<chem::MoleculeEntity> copy = residues;
        copy.detach();
        benchmark::DoNotOptimize(copy);
    }
    state.SetComplexityN(state.range(0));
}

void locatedModifyByResidues(benchmark::State& state)
{
    const chem::MoleculeEntity molecule = protein(state.range(0));
    const chem::Modify step = locatedStep();
    for (auto _ : state)
        benchmark::DoNotOptimize(step.transform(molecule));
    state.SetComplexityN(state.range(0));
}

void locatedModifyByChains(benchmark::State& state)
{
    const chem::MoleculeEntity molecule = protein(100, state.range(0));
    const chem::Modify step = locatedStep();
    for (auto _ : state)
        benchmark::DoNotOptimize(step.transform(molecule));
    state.SetComplexityN(state.range(0));
}

void locatedModifyByEarlierSteps(benchmark::State& state)
{
    const chem::MoleculeEntity molecule = withHistory(protein(500), state.range(0));
    const chem::Modify step = locatedStep();
    for (auto _ : state)
        benchmark::DoNotOptimize(step.transform(molecule));
    state.SetComplexityN(state.range(0));
}

void modifyWithoutPlace(benchmark::State& state)
{
    const chem::MoleculeEntity molecule = protein(500);
    const chem::Modify step(phosphorylation());
    for (auto _ : state)
        benchmark::DoNotOptimize(step.transform(molecule));
}

void modifyMoleculeAndSumAgain(benchmark::State& state)
{
    const chem::MoleculeEntity molecule = protein(state.range(0));
    const chem::MoleculeEntity group = phosphorylation();
    for (auto _ : state)
        benchmark::DoNotOptimize(chem::modifyMolecule(molecule, group, {0, 60}));
    state.SetComplexityN(state.range(0));
}

} // namespace

BENCHMARK(residueMassSum)->Arg(500);
BENCHMARK(residueListCopy)->Arg(125)->Arg(500)->Arg(2000)->Complexity(benchmark::oN);
BENCHMARK(locatedModifyByResidues)->Arg(125)->Arg(500)->Arg(2000)->Complexity(benchmark::oN);
BENCHMARK(locatedModifyByChains)->RangeMultiplier(4)->Range(1, 256)->Complexity(benchmark::oN);
BENCHMARK(locatedModifyByEarlierSteps)
    ->RangeMultiplier(4)
    ->Range(16, 4096)
    ->Complexity(benchmark::oN);
BENCHMARK(modifyWithoutPlace);
BENCHMARK(modifyMoleculeAndSumAgain)->Arg(500);
