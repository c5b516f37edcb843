// The workloads of the library of ions whose instructions are counted.

#include "BenchmarkInputs.h"
#include "CountedWorkloads.h"
#include "Digest.h"
#include "FragmentIons.h"
#include "IonBenchmarkOptions.h"
#include "IsotopePattern.h"
#include "NucleotideTable.h"
#include "PeakMatch.h"
#include "ProForma.h"
#include <ChemicalFactory.h>
#include <LinearComplex.h>

#include <benchmark/benchmark.h>

#include <algorithm>
#include <vector>

using namespace ions;

namespace {

const ResidueTable& residues()
{
    static const ResidueTable table;
    return table;
}

QStringList peptides(int count)
{
    return randomPeptides(count, 7, 30);
}

/// The texts into one value, whose memory is used again.
std::function<void()> readInto(const QStringList& texts)
{
    return [texts, value = Peptidoform()]() mutable {
        for (const QString& text : texts)
            benchmark::DoNotOptimize(value.assign(text));
    };
}

std::vector<Backbone> peptideBackbones(int count)
{
    std::vector<Backbone> backbones;
    for (const QString& text : peptides(count))
        backbones.push_back(Backbone::peptide(text, residues()).value());
    return backbones;
}

std::vector<Backbone> oligonucleotideBackbones(int count)
{
    std::vector<Backbone> backbones;
    for (const QString& text : randomOligos(count))
        backbones.push_back(
            Backbone::oligonucleotide(text, *chem::defaultChemicalFactory()).value());
    return backbones;
}

std::function<void()> ionsOf(const std::vector<Backbone>& backbones, const IonOptions& options)
{
    return [backbones, options, ions = FragmentIons()]() mutable {
        for (const Backbone& backbone : backbones)
            benchmark::DoNotOptimize(ions.assign(backbone, options));
    };
}

std::function<void()> patterns(const std::vector<Composition>& compositions)
{
    std::vector<IsotopeGroup> groups;
    for (const Composition& composition : compositions)
        groups.push_back({composition, residues().atoms()});
    return [groups, pattern = IsotopePattern()]() mutable {
        for (const IsotopeGroup& group : groups)
            benchmark::DoNotOptimize(pattern.fill({&group, 1}));
    };
}

std::vector<double> ascendingMasses(std::size_t count, unsigned seed)
{
    std::vector<double> masses = randomMasses(count, seed);
    std::sort(masses.begin(), masses.end());
    return masses;
}

const Workload workloads[] = {
    {"ions-peptide-text-to-masses", 200,
     [](int count) {
         return [texts = peptides(count)] {
             for (const QString& text : texts)
                 benchmark::DoNotOptimize(residues().peptide(text));
         };
     }},
    {"ions-oligo-text-to-masses", 200,
     [](int count) {
         return [texts = randomOligos(count), table = NucleotideTable()] {
             for (const QString& text : texts)
                 benchmark::DoNotOptimize(table.oligonucleotide(text));
         };
     }},
    {"ions-b-and-y-from-text", 200,
     [](int count) {
         return [texts = peptides(count), backbone = Backbone(), ions = FragmentIons(),
                 options = IonOptions()]() mutable {
             for (const QString& text : texts) {
                 benchmark::DoNotOptimize(backbone.assignPeptide(text, residues()));
                 benchmark::DoNotOptimize(ions.assign(backbone, options));
             }
         };
     }},
    {"ions-charges-and-losses", 200,
     [](int count) {
         return ionsOf(
             peptideBackbones(count),
             threeCharges({QStringLiteral("H2O"), QStringLiteral("NH3")}, residues().atoms()));
     }},
    {"ions-oligo-nine-series", 200,
     [](int count) {
         return ionsOf(oligonucleotideBackbones(count), nineSeries());
     }},
    {"ions-digest", 1, // of one protein
     [](int) {
         return [protein = randomPeptides(1, 1000, 1000).first(),
                 trypsin = Protease::named(u"Trypsin").value(), digest = Digest()]() mutable {
             digest.cleave(protein, trypsin, residues(), {.missedCleavages = 2});
         };
     }},
    {"ions-pattern-of-peptide", 50,
     [](int count) {
         std::vector<Composition> compositions;
         for (const QString& text : peptides(count))
             compositions.push_back(
                 Composition::fromFormula(
                     chem::defaultChemicalFactory()->constructLinearPeptideComplex(text)->formula())
                     .value());
         return patterns(compositions);
     }},
    {"ions-pattern-of-150-kda", 1,
     [](int) {
         return patterns({Composition::read(u"C6666H10473N1833O1994S56").value()});
     }},
    {"ions-one-mass-among-peaks", 1000,
     [](int count) {
         return [peaks = ascendingMasses(100000, 20261123),
                 masses = randomMasses(std::size_t(count), 20261124)] {
             for (const double mass : masses)
                 benchmark::DoNotOptimize(peaksAround(peaks, mass, ppm(10)));
         };
     }},
    {"ions-ascending-among-peaks", 3000,
     [](int count) {
         return [peaks = ascendingMasses(3000, 20261123),
                 masses = ascendingMasses(std::size_t(count), 20261124),
                 ranges = std::vector<PeakRange>()]() mutable {
             peaksAround(peaks, masses, ppm(10), &ranges);
         };
     }},
    {"ions-proforma-plain", 200,
     [](int count) {
         return readInto(peptides(count));
     }},
    {"ions-proforma-with-names", 200,
     [](int count) {
         QStringList texts = peptides(count);
         for (QString& text : texts)
             text.insert(text.size() / 2, QStringLiteral("[Carbamidomethyl]"));
         return readInto(texts);
     }},
    {"ions-proforma-weighed", 50,
     [](int count) {
         std::vector<Peptidoform> peptidoforms;
         for (QString text : peptides(count))
             peptidoforms.push_back(
                 Peptidoform::read(text.insert(text.size() / 2, QStringLiteral("[Oxidation]")))
                     .value());
         return [peptidoforms, table = ModificationTable::standard(residues().atoms())] {
             for (const Peptidoform& peptidoform : peptidoforms)
                 benchmark::DoNotOptimize(peptidoform.weigh(0, residues(), table));
         };
     }},
};

} // namespace

int main(int argumentCount, char* arguments[])
{
    return runWorkload(workloads, argumentCount, arguments);
}
