// Peptides in ProForma, plain and with names of modifications, beside a sum over a letter table.

#include "BenchmarkInputs.h"
#include "ProForma.h"

#include <QStringList>

#include <benchmark/benchmark.h>

#include <vector>

using namespace ions;

namespace {

constexpr int peptideCount = 1000;

/// Peptides of 7 to 30 residues with a tag behind each `spacing`-th residue; none if it is 0.
QStringList peptides(int spacing)
{
    const QStringList tags = {QStringLiteral("[Oxidation]"), QStringLiteral("[Phospho]"),
                              QStringLiteral("[Carbamidomethyl]"), QStringLiteral("[U:Acetyl]")};
    QStringList texts = randomPeptides(peptideCount, 7, 30);
    for (QString& text : texts) {
        for (qsizetype residue = text.size(); spacing > 0 && residue > 0; residue -= spacing)
            text.insert(residue, tags[residue / spacing % tags.size()]);
    }
    return texts;
}

double tagCount(const QStringList& texts)
{
    double count = 0;
    for (const QString& text : texts)
        count += double(text.count(QLatin1Char('[')));
    return count;
}

/// Reports the time of a text, or of a tag where there are any.
void report(benchmark::State& state, const QStringList& texts)
{
    using benchmark::Counter;
    const auto perUnit = Counter::kIsIterationInvariantRate | Counter::kInvert;
    state.counters["per_text"] = Counter(double(texts.size()), perUnit);
    if (const double tags = tagCount(texts); tags > 0) {
        state.counters["tags"] = Counter(tags, Counter::kAvgThreads);
        state.counters["per_tag"] = Counter(tags, perUnit);
    }
}

/// The floor: each letter looked up once and both its masses added.
void floorSumOfResidues(benchmark::State& state)
{
    const QStringList texts = peptides(0);
    const ResidueTable residues;
    const auto letters = residues.letterMasses();
    for (auto _ : state) {
        for (const QString& text : texts) {
            Masses sum = residues.water();
            for (const QChar letter : text)
                sum += letters[letter.unicode()];
            benchmark::DoNotOptimize(sum);
        }
    }
    report(state, texts);
}
BENCHMARK(floorSumOfResidues)->Unit(benchmark::kMicrosecond)->ThreadRange(1, 2);

/// The texts into one value, whose memory is used again.
void read(benchmark::State& state, int spacing)
{
    const QStringList texts = peptides(spacing);
    Peptidoform peptidoform;
    for (auto _ : state) {
        for (const QString& text : texts)
            benchmark::DoNotOptimize(peptidoform.assign(text));
    }
    report(state, texts);
}

void weigh(benchmark::State& state, int spacing)
{
    const ResidueTable residues;
    const ModificationTable table = ModificationTable::standard(residues.atoms());
    std::vector<Peptidoform> peptidoforms;
    const QStringList texts = peptides(spacing);
    for (const QString& text : texts)
        peptidoforms.push_back(Peptidoform::read(text).value());
    for (auto _ : state) {
        for (const Peptidoform& peptidoform : peptidoforms)
            benchmark::DoNotOptimize(peptidoform.weigh(0, residues, table));
    }
    report(state, texts);
}

} // namespace

BENCHMARK_CAPTURE(read, plain, 0)->Unit(benchmark::kMicrosecond)->ThreadRange(1, 2);
BENCHMARK_CAPTURE(read, namedTags, 3)->Unit(benchmark::kMicrosecond)->ThreadRange(1, 2);
BENCHMARK_CAPTURE(weigh, plain, 0)->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(weigh, namedTags, 3)->Unit(benchmark::kMicrosecond);
