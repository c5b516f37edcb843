// Digests of a proteome, beside one plain pass over its letters.

#include "Digest.h"

#include <QStringList>

#include <benchmark/benchmark.h>

#include <random>

using namespace ions;

namespace {

/// 6,000 proteins of about 450 residues with the frequencies of natural ones.
const QStringList& proteome()
{
    static const QStringList proteins = [] {
        const QString letters = QStringLiteral("ARNDCQEGHILKMFPSTWYV");
        // In percent, as in the statistics of Swiss-Prot.
        std::discrete_distribution<int> letter({8.25, 5.53, 4.06, 5.46, 1.38, 3.93, 6.72,
                                                7.07, 2.27, 5.91, 9.65, 5.80, 2.41, 3.86,
                                                4.74, 6.65, 5.36, 1.10, 2.92, 6.86});
        std::uniform_int_distribution<int> length(100, 800);
        std::mt19937 random(20261122);
        QStringList texts;
        for (int i = 0; i < 6000; ++i) {
            QString text(length(random), QChar());
            for (QChar& residue : text)
                residue = letters[letter(random)];
            texts.append(text);
        }
        return texts;
    }();
    return proteins;
}

double residueCount()
{
    double residues = 0;
    for (const QString& protein : proteome())
        residues += double(protein.size());
    return residues;
}

/// Reports the time beside the row's goal of 2 ns a residue and 5 ns a peptide.
void report(benchmark::State& state, double peptides)
{
    using benchmark::Counter;
    const auto perUnit = Counter::kIsIterationInvariantRate | Counter::kInvert;
    const double goal = 2e-9 * residueCount() + 5e-9 * peptides;
    state.counters["peptides"] = peptides;
    state.counters["per_residue"] = Counter(residueCount(), perUnit);
    // Time an iteration over the goal: below 1 is met.
    state.counters["of_goal"] = Counter(goal, perUnit);
}

/// The floor: each letter looked up once and both its masses added.
void floorSumOfResidues(benchmark::State& state)
{
    const ResidueTable residues;
    const auto letters = residues.letterMasses();
    for (auto _ : state) {
        for (const QString& protein : proteome()) {
            Masses sum;
            for (const QChar letter : protein)
                sum += letters[letter.unicode()];
            benchmark::DoNotOptimize(sum);
        }
    }
    report(state, 0);
}
BENCHMARK(floorSumOfResidues)->Unit(benchmark::kMillisecond);

void digest(benchmark::State& state, const Protease& protease, const DigestOptions& options)
{
    const ResidueTable residues;
    Digest digest;
    double peptides = 0;
    for (auto _ : state) {
        peptides = 0;
        for (const QString& protein : proteome()) {
            digest.cleave(protein, protease, residues, options);
            peptides += double(digest.size());
        }
    }
    report(state, peptides);
}

Protease protease(const char16_t* name)
{
    return Protease::named(name).value();
}

/// What finding the cuts takes of a digest.
void cuts(benchmark::State& state, const Protease& protease)
{
    std::vector<qsizetype> places;
    for (auto _ : state) {
        for (const QString& protein : proteome())
            benchmark::DoNotOptimize(protease.findCuts(protein, &places));
    }
    report(state, 0);
}

void digestByExpression(benchmark::State& state)
{
    const QString expression = QStringLiteral("(?<=K|R)(?!P)");
    digest(state, Protease::fromExpression(expression).value(), {.missedCleavages = 2});
}

} // namespace

BENCHMARK_CAPTURE(cuts, trypsin, protease(u"Trypsin"))->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(digest, trypsinNoneMissed, protease(u"Trypsin"), {.missedCleavages = 0})
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(digest, trypsinTwoMissed, protease(u"Trypsin"), {.missedCleavages = 2})
    ->Unit(benchmark::kMillisecond)
    ->ThreadRange(1, 2);
BENCHMARK_CAPTURE(digest, trypsinTwoMissedFrom7To50, protease(u"Trypsin"),
                  {.missedCleavages = 2, .minLength = 7, .maxLength = 50})
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(digest, thermolysinTwoMissed, protease(u"Thermolysin"), {.missedCleavages = 2})
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(digest, trypsinSemiSpecific, protease(u"Trypsin"),
                  {.missedCleavages = 2, .minLength = 7, .maxLength = 50, .isSemiSpecific = true})
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(digest, unspecific8To11, protease(u"unspecific cleavage"),
                  {.minLength = 8, .maxLength = 11})
    ->Unit(benchmark::kMillisecond);
BENCHMARK(digestByExpression)->Unit(benchmark::kMillisecond);
