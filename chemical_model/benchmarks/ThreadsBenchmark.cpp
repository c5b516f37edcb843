// Each kind of work on one and on two threads that share a factory and their inputs. What counts is
// processor time for an item, which a busy machine does not hide: it is the same on two threads
// where they do not hinder each other.

#include "BenchmarkInputs.h"
#include "BenchmarkProteins.h"

#include <benchmark/benchmark.h>

using namespace Qt::StringLiterals;

namespace {

constexpr int inputs = 500;

const chem::ChemicalFactory& factory()
{
    static const auto shared = chem::defaultChemicalFactory();
    return *shared;
}

const QStringList& peptides()
{
    static const QStringList texts = randomPeptides(inputs, 7, 30);
    return texts;
}

const QStringList& strands()
{
    static const QStringList texts = randomOligos(inputs);
    return texts;
}

/// Does `work` for each input, again and again.
template <typename Inputs, typename Work>
void measure(benchmark::State& state, const Inputs& all, const Work& work)
{
    work(*all.cbegin()); // what is made at the first use
    for (auto _ : state) {
        for (const auto& input : all)
            work(input);
    }
    state.SetItemsProcessed(state.iterations() * all.size());
}

void formulaText(benchmark::State& state)
{
    static const QStringList formulas = randomFormulas(inputs);
    measure(state, formulas, [](const QString& text) {
        benchmark::DoNotOptimize(factory().constructMolecule(text));
    });
}

void peptideParse(benchmark::State& state)
{
    measure(state, peptides(), [](const QString& text) {
        QList<QSharedPointer<const chem::AminoAcid>> residues;
        chem::NamedMolecule left;
        chem::NamedMolecule right;
        factory().parseAminoAcidSequence(text, &residues, &left, &right);
    });
}

void peptideComplex(benchmark::State& state)
{
    measure(state, peptides(), [](const QString& text) {
        benchmark::DoNotOptimize(factory().constructLinearPeptideComplex(text));
    });
}

void peptideMolecule(benchmark::State& state)
{
    measure(state, peptides(), [](const QString& text) {
        const chem::Chain chain = chem::constructPeptideChain({}, {}, text, &factory());
        benchmark::DoNotOptimize(chem::constructStructuredMolecule({}, {}, {chain}, {}, {},
                                                                   chem::MoleculeType::Peptide));
    });
}

void glycan(benchmark::State& state)
{
    static const QStringList compositions = {u"HexNAc(2)Hex(5)"_s, u"HexNAc(4)Hex(5)NeuAc(2)"_s,
                                             u"Fuc(1) Hex (3) HexNAc(2)"_s};
    measure(state, compositions, [](const QString& text) {
        benchmark::DoNotOptimize(factory().constructGlycanModification(text));
    });
}

void oligoValidity(benchmark::State& state)
{
    measure(state, strands(), [](const QString& text) {
        benchmark::DoNotOptimize(factory().isValidOligoSequence(text));
    });
}

void oligoParse(benchmark::State& state)
{
    measure(state, strands(), [](const QString& text) {
        QList<QSharedPointer<const chem::Nucleotide>> nucleotides;
        chem::NamedMolecule fivePrime;
        chem::NamedMolecule threePrime;
        factory().parseNucleotideSequence(text, &nucleotides, &fivePrime, &threePrime);
    });
}

void oligoComplex(benchmark::State& state)
{
    measure(state, strands(), [](const QString& text) {
        benchmark::DoNotOptimize(factory().constructLinearOligoComplex(text));
    });
}

void oligoMolecule(benchmark::State& state)
{
    measure(state, strands(), [](const QString& text) {
        benchmark::DoNotOptimize(chem::constructOligoNucleotide({}, {}, text, &factory()));
    });
}

/// Each thread breaks complexes that all share.
void flatFragments(benchmark::State& state)
{
    static const auto complexes = [] {
        QList<QSharedPointer<const chem::MoleculeComplex>> made;
        for (const QString& text : peptides())
            made.append(factory().constructLinearPeptideComplex(text));
        return made;
    }();
    measure(state, complexes, [](const QSharedPointer<const chem::MoleculeComplex>& complex) {
        QList<chem::SimpleFragment> fragments;
        chem::generateLinearFragments(*complex, fragments);
    });
}

/// Each thread clips a molecule that all share.
void clipsOfOneMolecule(benchmark::State& state)
{
    static const QList<chem::MoleculeEntity> proteins = {benchmarkProteins::protein(50)};
    measure(state, proteins, [](const chem::MoleculeEntity& protein) {
        benchmark::DoNotOptimize(
            chem::generateClips(protein, nullptr, chem::ClipOptions::createClipAll()));
    });
}

/// Each thread modifies a molecule that all share.
void locatedStepOnOneMolecule(benchmark::State& state)
{
    static const QList<chem::MoleculeEntity> proteins = {benchmarkProteins::protein(500)};
    static const chem::Modify step(
        chem::Modification(benchmarkProteins::phosphorylation(), {{0, 60}}));
    measure(state, proteins, [](const chem::MoleculeEntity& protein) {
        benchmark::DoNotOptimize(step.transform(protein));
    });
}

BENCHMARK(formulaText)->ThreadRange(1, 2);
BENCHMARK(peptideParse)->ThreadRange(1, 2);
BENCHMARK(peptideComplex)->ThreadRange(1, 2);
BENCHMARK(peptideMolecule)->ThreadRange(1, 2);
BENCHMARK(glycan)->ThreadRange(1, 2);
BENCHMARK(oligoValidity)->ThreadRange(1, 2);
BENCHMARK(oligoParse)->ThreadRange(1, 2);
BENCHMARK(oligoComplex)->ThreadRange(1, 2);
BENCHMARK(oligoMolecule)->ThreadRange(1, 2);
BENCHMARK(flatFragments)->ThreadRange(1, 2);
BENCHMARK(clipsOfOneMolecule)->ThreadRange(1, 2);
BENCHMARK(locatedStepOnOneMolecule)->ThreadRange(1, 2);

} // namespace
