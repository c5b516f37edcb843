// Chains and molecules of 500 residues: building, comparing, sequence text. The floors sum doubles
// and copy residue lists.

#include "BenchmarkProteins.h"

#include <benchmark/benchmark.h>

namespace {

using benchmarkProteins::proteinText;
using chem::Chain;
using chem::MoleculeEntity;
using chem::MoleculeType;

constexpr int residueCount = 500;

Chain builtChain(const QString& text)
{
    return chem::constructPeptideChain(QStringLiteral("chain"), QString(), text,
                                       chem::defaultChemicalFactory().data());
}

/// The same residues in a list of its own.
Chain equalChain(const Chain& chain)
{
    QList<MoleculeEntity> residues;
    for (const MoleculeEntity& residue : chain.residues())
        residues.append(residue);
    return Chain(chain.name(), QString(), residues, chain.type(), chain.parentLocus());
}

void floorSumResidueMasses(benchmark::State& state)
{
    const QList<MoleculeEntity> residues = builtChain(proteinText(state.range(0))).residues();
    for (auto _ : state) {
        double average = 0.0;
        double mono = 0.0;
        for (const MoleculeEntity& residue : residues) {
            average += residue.averageMass();
            mono += residue.monoMass();
        }
        benchmark::DoNotOptimize(average);
        benchmark::DoNotOptimize(mono);
    }
}
BENCHMARK(floorSumResidueMasses)->Arg(residueCount)->Arg(10 * residueCount);

void floorAllocateResidues(benchmark::State& state)
{
    const chem::AminoAcid residue(chem::NamedMolecule(
        chem::defaultChemicalFactory()->constructMolecule(QStringLiteral("C3H5NO")),
        QStringLiteral("Alanine"), QStringLiteral("A")));
    for (auto _ : state) {
        QList<MoleculeEntity> residues;
        residues.reserve(state.range(0));
        for (std::int64_t i = 0; i < state.range(0); ++i)
            residues.append(residue);
        benchmark::DoNotOptimize(residues);
    }
}
BENCHMARK(floorAllocateResidues)->Arg(residueCount)->Arg(10 * residueCount);

void chainFromText(benchmark::State& state)
{
    const QString text = proteinText(state.range(0));
    for (auto _ : state)
        benchmark::DoNotOptimize(builtChain(text));
}
BENCHMARK(chainFromText)->Arg(residueCount)->Arg(10 * residueCount);

void moleculeFromChain(benchmark::State& state)
{
    const Chain chain = builtChain(proteinText(state.range(0)));
    for (auto _ : state)
        benchmark::DoNotOptimize(chem::constructStructuredMolecule(QString(), QString(), {chain},
                                                                   {}, {}, MoleculeType::Protein));
}
BENCHMARK(moleculeFromChain)->Arg(residueCount)->Arg(10 * residueCount);

void compareChainWithItsCopy(benchmark::State& state)
{
    const Chain chain = builtChain(proteinText(residueCount));
    const Chain copy = chain;
    for (auto _ : state)
        benchmark::DoNotOptimize(chain == copy);
}
BENCHMARK(compareChainWithItsCopy);

void compareChainWithEqualResidueList(benchmark::State& state)
{
    const Chain chain = builtChain(proteinText(residueCount));
    const Chain other = equalChain(chain);
    for (auto _ : state)
        benchmark::DoNotOptimize(chain == other);
}
BENCHMARK(compareChainWithEqualResidueList);

void compareChainWithOneBuiltAgain(benchmark::State& state)
{
    const Chain chain = builtChain(proteinText(residueCount));
    const Chain other = builtChain(proteinText(residueCount));
    for (auto _ : state)
        benchmark::DoNotOptimize(chain == other);
}
BENCHMARK(compareChainWithOneBuiltAgain);

void sequenceText(benchmark::State& state)
{
    const MoleculeEntity protein = benchmarkProteins::protein(state.range(0));
    for (auto _ : state)
        benchmark::DoNotOptimize(protein.sequence());
}
BENCHMARK(sequenceText)->Arg(residueCount)->Arg(10 * residueCount);

} // namespace
