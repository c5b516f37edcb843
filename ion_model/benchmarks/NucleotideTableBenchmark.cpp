// Oligonucleotide text to both masses. The floor is the plain sum of a letter table, which knows
// neither what may follow what nor the parts that a text does not name.

#include "BenchmarkInputs.h"
#include "NucleotideTable.h"
#include <ChemicalFactory.h>

#include <benchmark/benchmark.h>

#include <numeric>

namespace {

constexpr int textCount = 2000;

const QStringList& texts()
{
    static const QStringList made = randomOligos(textCount);
    return made;
}

void report(benchmark::State& state)
{
    const double characters =
        std::accumulate(texts().begin(), texts().end(), 0.0,
                        [](double sum, const QString& text) { return sum + double(text.size()); });
    state.SetItemsProcessed(state.iterations() * textCount);
    state.counters["characters"] = characters;
}

void floorSumOfLetters(benchmark::State& state)
{
    // What the letters weigh costs nothing here.
    const std::vector<ions::Masses> letters(128, ions::Masses{100.0, 100.1});
    for (auto _ : state) {
        for (const QString& text : texts()) {
            ions::Masses sum;
            for (const QChar letter : text)
                sum += letters[letter.unicode()];
            benchmark::DoNotOptimize(sum);
        }
    }
    report(state);
}
BENCHMARK(floorSumOfLetters)->ThreadRange(1, 2);

void massesOfOligonucleotides(benchmark::State& state)
{
    static const ions::NucleotideTable nucleotides;
    for (auto _ : state) {
        for (const QString& text : texts())
            benchmark::DoNotOptimize(nucleotides.oligonucleotide(text));
    }
    report(state);
}
BENCHMARK(massesOfOligonucleotides)->ThreadRange(1, 2);

} // namespace
