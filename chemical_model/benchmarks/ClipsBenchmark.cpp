#include "BenchmarkProteins.h"

#include <benchmark/benchmark.h>

using namespace benchmarkProteins;

namespace {

/// Reports the time for one clip; the number of clips goes into `clips`.
void reportTimePerClip(benchmark::State& state, qsizetype clips)
{
    using benchmark::Counter;
    const double count = static_cast<double>(clips);
    state.counters["clips"] = count;
    state.counters["per_clip"] =
        Counter(count, Counter::kIsIterationInvariantRate | Counter::kInvert);
}

void clip(benchmark::State& state, const chem::MoleculeEntity& molecule,
          const chem::ClipOptions& options)
{
    for (auto _ : state)
        benchmark::DoNotOptimize(chem::generateClips(molecule, nullptr, options));
    reportTimePerClip(state, chem::generateClips(molecule, nullptr, options).size());
}

chem::ClipOptions byDepth(int depth)
{
    return chem::ClipOptions::createClipByDepth(depth, depth, depth, depth);
}

/// The floor: the residues of each range of `options`, read once for their masses.
void rangeMassSum(benchmark::State& state, const chem::ClipOptions& options)
{
    const chem::MoleculeEntity molecule = protein(500);
    const QList<chem::Chain> chains = molecule.chains();
    const QList<chem::MoleculeEntity> residues = chains.first().residues();
    QList<chem::ParentChainLocus> ranges;
    const QList<chem::MoleculeEntity> clips = chem::generateClips(molecule, nullptr, options);
    for (const chem::MoleculeEntity& entity : clips)
        ranges.append(entity.chains().first().parentLocus());

    for (auto _ : state) {
        for (const chem::ParentChainLocus& range : std::as_const(ranges)) {
            double averageMass = 0.0;
            double monoMass = 0.0;
            for (int i = range.start; i < range.end; ++i) {
                averageMass += residues[i].averageMass();
                monoMass += residues[i].monoMass();
            }
            benchmark::DoNotOptimize(averageMass);
            benchmark::DoNotOptimize(monoMass);
        }
    }
    reportTimePerClip(state, ranges.size());
}

/// What each clip cannot do without beside the sums: a list of its residues.
void rangeListCopy(benchmark::State& state)
{
    const QList<chem::Chain> chains = protein(500).chains();
    const QList<chem::MoleculeEntity> residues = chains.first().residues();
    for (auto _ : state)
        benchmark::DoNotOptimize(residues.mid(1, 250));
}

void clipAllByResidues(benchmark::State& state)
{
    clip(state, protein(state.range(0)), chem::ClipOptions::createClipAll());
}

void clipByDepth(benchmark::State& state)
{
    clip(state, protein(500), byDepth(static_cast<int>(state.range(0))));
}

/// Clips of five residues, so that what a clip costs by itself shows.
void clipPentapeptide(benchmark::State& state)
{
    clip(state, protein(5), chem::ClipOptions::createClipAll());
}

void clipByEarlierSteps(benchmark::State& state)
{
    clip(state, withHistory(protein(5), state.range(0)), chem::ClipOptions::createClipAll());
}

void clipByChains(benchmark::State& state)
{
    clip(state, protein(5, state.range(0)), chem::ClipOptions::createClipAll());
}

chem::ClipOptions trypsin()
{
    return chem::ClipOptions::createClipByResidue({QStringLiteral("[KR](?!P)")}, {QString()});
}

/// Both sides of every cut: the number of clips grows with the chain, and so does each of them.
void clipByResidueRule(benchmark::State& state)
{
    clip(state, protein(state.range(0)), trypsin());
}

} // namespace

BENCHMARK_CAPTURE(rangeMassSum, all, chem::ClipOptions::createClipAll())
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(rangeMassSum, depth20, byDepth(20))->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(rangeMassSum, trypsin, trypsin())->Unit(benchmark::kMillisecond);
BENCHMARK(rangeListCopy);
BENCHMARK(clipAllByResidues)
    ->Arg(125)
    ->Arg(250)
    ->Arg(500)
    ->Arg(1000)
    ->Unit(benchmark::kMillisecond);
BENCHMARK(clipByDepth)->Arg(5)->Arg(10)->Arg(20)->Arg(40)->Unit(benchmark::kMillisecond);
BENCHMARK(clipPentapeptide);
BENCHMARK(clipByEarlierSteps)->Arg(0)->RangeMultiplier(4)->Range(16, 1024);
BENCHMARK(clipByChains)->RangeMultiplier(4)->Range(1, 256);
BENCHMARK(clipByResidueRule)->Arg(500)->Arg(1000)->Arg(2000)->Unit(benchmark::kMillisecond);
