// Ions of peptides and oligonucleotides, beside plain prefix sums over the same masses.

#include "BenchmarkInputs.h"
#include "FragmentIons.h"
#include "IonBenchmarkOptions.h"
#include <ChemicalFactory.h>

#include <benchmark/benchmark.h>

#include <array>

#ifdef __GLIBC__
#include <malloc.h>
#endif

using namespace ions;

namespace {

constexpr int inputCount = 200; // backbones of these stay in the cache of a core

const ResidueTable& residues()
{
    static const ResidueTable table;
    return table;
}

const QStringList& peptideTexts()
{
    static const QStringList texts = randomPeptides(inputCount, 7, 30);
    return texts;
}

const std::vector<Backbone>& peptides()
{
    static const std::vector<Backbone> backbones = [] {
        std::vector<Backbone> made;
        for (const QString& text : peptideTexts())
            made.push_back(Backbone::peptide(text, residues()).value());
        return made;
    }();
    return backbones;
}

const std::vector<Backbone>& oligonucleotides()
{
    static const std::vector<Backbone> backbones = [] {
        const auto factory = chem::defaultChemicalFactory();
        std::vector<Backbone> made;
        for (const QString& text : randomOligos(inputCount))
            made.push_back(Backbone::oligonucleotide(text, *factory).value());
        return made;
    }();
    return backbones;
}

IonOptions tenSeries()
{
    IonOptions options;
    options.series = {Series::A, Series::ADot, Series::B, Series::C, Series::CDot,
                      Series::X, Series::XDot, Series::Y, Series::Z, Series::ZDot};
    return options;
}

/// Adds up from both ends at once and lists ions of each end that differ by the given masses.
template <typename Units, typename MassOf, std::size_t leftCount, std::size_t rightCount>
void prefixSums(const Units& units, const MassOf& massOf, const std::array<double, leftCount>& left,
                const std::array<double, rightCount>& right, std::vector<double>* ions)
{
    ions->clear();
    double leftSum = 0.0;
    double rightSum = 0.0;
    auto next = units.cbegin();
    auto last = units.cend();
    for (auto i = units.size() - 1; i > 0; --i) {
        leftSum += massOf(*next++);
        rightSum += massOf(*--last);
        for (const double delta : left)
            ions->push_back(leftSum + delta);
        for (const double delta : right)
            ions->push_back(rightSum + delta);
    }
}

constexpr std::array<double, 1> deltaOfB = {1.0};
constexpr std::array<double, 1> deltaOfY = {19.0};
constexpr std::array<double, 5> leftDeltas = {-27.0, -26.0, 1.0, 18.0, 19.0};
constexpr std::array<double, 5> rightDeltas = {45.0, 46.0, 19.0, 2.0, 3.0};

const std::vector<Masses>& unitsOf(const Backbone& backbone)
{
    return backbone.chains()[0].units;
}

void floorBAndYFromText(benchmark::State& state)
{
    const Masses* const letters = residues().letterMasses().data();
    const auto massOf = [letters](QChar letter) {
        return letters[letter.unicode()].monoisotopic;
    };
    std::vector<double> ions;
    for (auto _ : state) {
        for (const QString& text : peptideTexts()) {
            prefixSums(text, massOf, deltaOfB, deltaOfY, &ions);
            benchmark::DoNotOptimize(ions.data());
            benchmark::ClobberMemory();
        }
    }
    state.SetItemsProcessed(state.iterations() * inputCount);
}
BENCHMARK(floorBAndYFromText)->ThreadRange(1, 2);

void bAndYFromText(benchmark::State& state)
{
    const IonOptions options;
    Backbone backbone;
    FragmentIons ions;
    for (auto _ : state) {
        for (const QString& text : peptideTexts()) {
            benchmark::DoNotOptimize(backbone.assignPeptide(text, residues()));
            benchmark::DoNotOptimize(ions.assign(backbone, options));
            benchmark::DoNotOptimize(ions.mz().data());
            benchmark::ClobberMemory();
        }
    }
    state.SetItemsProcessed(state.iterations() * inputCount);
}
BENCHMARK(bAndYFromText)->ThreadRange(1, 2);

/// The floor of ions of backbones: the units are looked up already.
template <typename Left, typename Right>
void floorPrefixSums(benchmark::State& state, const std::vector<Backbone>& backbones,
                     const Left& left, const Right& right)
{
    const auto massOf = [](const Masses& unit) {
        return unit.monoisotopic;
    };
    std::vector<double> ions;
    for (auto _ : state) {
        for (const Backbone& backbone : backbones) {
            prefixSums(unitsOf(backbone), massOf, left, right, &ions);
            benchmark::DoNotOptimize(ions.data());
            benchmark::ClobberMemory();
        }
    }
    state.SetItemsProcessed(state.iterations() * inputCount);
}

void ionsOf(benchmark::State& state, const std::vector<Backbone>& backbones,
            const IonOptions& options)
{
    FragmentIons ions;
    double count = 0.0;
    for (const Backbone& backbone : backbones) {
        benchmark::DoNotOptimize(ions.assign(backbone, options));
        count += double(ions.mz().size());
    }
    for (auto _ : state) {
        for (const Backbone& backbone : backbones) {
            benchmark::DoNotOptimize(ions.assign(backbone, options));
            benchmark::DoNotOptimize(ions.mz().data());
            benchmark::ClobberMemory();
        }
    }
    state.SetItemsProcessed(state.iterations() * inputCount);
    state.counters["ions"] = count;
}

void floorBAndY(benchmark::State& state)
{
    floorPrefixSums(state, peptides(), deltaOfB, deltaOfY);
}
BENCHMARK(floorBAndY)->ThreadRange(1, 2);

void bAndY(benchmark::State& state)
{
    ionsOf(state, peptides(), IonOptions());
}
BENCHMARK(bAndY)->ThreadRange(1, 2);

void floorTenSeries(benchmark::State& state)
{
    floorPrefixSums(state, peptides(), leftDeltas, rightDeltas);
}
BENCHMARK(floorTenSeries)->ThreadRange(1, 2);

void tenSeriesOfPeptides(benchmark::State& state)
{
    ionsOf(state, peptides(), tenSeries());
}
BENCHMARK(tenSeriesOfPeptides)->ThreadRange(1, 2);

void threeChargesTwoLosses(benchmark::State& state)
{
    ionsOf(state, peptides(),
           threeCharges({QStringLiteral("H2O"), QStringLiteral("NH3")}, residues().atoms()));
}
BENCHMARK(threeChargesTwoLosses)->ThreadRange(1, 2);

void threeChargesTwoLossesOfSomeResidues(benchmark::State& state)
{
    ionsOf(
        state, peptides(),
        threeCharges({QStringLiteral("H2O@STED"), QStringLiteral("NH3@RKNQ")}, residues().atoms()));
}
BENCHMARK(threeChargesTwoLossesOfSomeResidues);

/// The floor of nine series: the linkages are summed with the units in front of them, and an ion
/// that holds one, or lacks a base, takes it from there.
void floorNineSeries(benchmark::State& state)
{
    std::vector<double> ions;
    for (auto _ : state) {
        for (const Backbone& backbone : oligonucleotides()) {
            const BackboneChain& chain = backbone.chains()[0];
            const std::size_t size = chain.units.size();
            ions.clear();
            double left = 0.0;
            double right = chain.units[size - 1].monoisotopic;
            for (std::size_t i = 0; i + 1 < size; ++i) {
                left += chain.units[i].monoisotopic;
                ions.push_back(left + 1.0);
                ions.push_back(left + 19.0);
                ions.push_back(left - chain.bases[i].monoisotopic);
                left += chain.linkages[i].monoisotopic;
                ions.push_back(left + 1.0);
                ions.push_back(left + 19.0);
                ions.push_back(right + 19.0);
                ions.push_back(right + 1.0);
                right += chain.linkages[size - 2 - i].monoisotopic;
                ions.push_back(right + 19.0);
                ions.push_back(right + 1.0);
                right += chain.units[size - 2 - i].monoisotopic;
            }
            benchmark::DoNotOptimize(ions.data());
            benchmark::ClobberMemory();
        }
    }
    state.SetItemsProcessed(state.iterations() * inputCount);
}
BENCHMARK(floorNineSeries)->ThreadRange(1, 2);

void nineSeriesOfOligonucleotides(benchmark::State& state)
{
    ionsOf(state, oligonucleotides(), nineSeries());
}
BENCHMARK(nineSeriesOfOligonucleotides)->ThreadRange(1, 2);

#ifdef __GLIBC__ // other C libraries do not tell what is in use
/// What lists of the ions of ten series hold of the heap, an ion. Their plan is one that they have
/// in common, as copies of a list have.
void memoryOfIons(benchmark::State& state)
{
    const int length = int(state.range());
    const Backbone backbone =
        Backbone::peptide(randomPeptides(1, length, length).first(), residues()).value();
    FragmentIons first;
    benchmark::DoNotOptimize(first.assign(backbone, tenSeries()));
    double bytes = 0.0;
    double count = 0.0;
    for (auto _ : state) {
        std::vector<FragmentIons> lists(1000);
        const std::size_t before = mallinfo2().uordblks;
        for (FragmentIons& ions : lists) {
            ions = first;
            count += double(ions.mz().size());
        }
        bytes += double(mallinfo2().uordblks - before);
    }
    state.counters["bytes_per_ion"] = bytes / count;
}
BENCHMARK(memoryOfIons)->Arg(18)->Arg(500)->Iterations(1);
#endif

} // namespace
