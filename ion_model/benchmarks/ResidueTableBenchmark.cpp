// Peptide text to both masses, beside the plain sum of a letter table.

#include "BenchmarkInputs.h"
#include "ResidueTable.h"

#include <benchmark/benchmark.h>

namespace {

constexpr int peptideCount = 2000;

const QStringList& peptides()
{
    static const QStringList texts = randomPeptides(peptideCount, 7, 30);
    return texts;
}

const ions::ResidueTable& residues()
{
    static const ions::ResidueTable table;
    return table;
}

/// The floor: it would read behind the table at a letter that is not ASCII.
void floorSumOfLetters(benchmark::State& state)
{
    const ions::Masses* const letters = residues().letterMasses().data();
    const ions::Masses water = residues().water();
    for (auto _ : state) {
        for (const QString& peptide : peptides()) {
            ions::Masses sum = water;
            for (const QChar letter : peptide)
                sum += letters[letter.unicode()];
            benchmark::DoNotOptimize(sum);
        }
    }
    state.SetItemsProcessed(state.iterations() * peptideCount);
}
BENCHMARK(floorSumOfLetters)->ThreadRange(1, 2);

void massesOfPeptides(benchmark::State& state)
{
    const ions::ResidueTable& table = residues();
    for (auto _ : state) {
        for (const QString& peptide : peptides())
            benchmark::DoNotOptimize(table.peptide(peptide));
    }
    state.SetItemsProcessed(state.iterations() * peptideCount);
}
BENCHMARK(massesOfPeptides)->ThreadRange(1, 2);

} // namespace
