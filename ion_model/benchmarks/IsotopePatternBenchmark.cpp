// Isotope patterns beside the envelopes of the first library, which sum one isotopologue at a time.

#include "BenchmarkInputs.h"
#include "IsotopePattern.h"
#include <ChemicalFactory.h>
#include <LinearComplex.h>

#include <benchmark/benchmark.h>

#include <vector>

namespace {

constexpr int peptideCount = 500;

const ions::AtomMasses& natural()
{
    static const ions::AtomMasses masses;
    return masses;
}

/// One molecule in the forms that both libraries take.
struct Input
{
    chem::Molecule molecule;
    std::vector<ions::IsotopeGroup> groups;

    explicit Input(const chem::Molecule& whole)
        : molecule(whole)
        , groups{{ions::Composition::fromFormula(whole.formula()).value(), natural()}}
    {
    }
};

const std::vector<Input>& peptides()
{
    static const std::vector<Input> inputs = [] {
        std::vector<Input> made;
        for (const QString& text : randomPeptides(peptideCount, 7, 30))
            made.emplace_back(*chem::defaultChemicalFactory()->constructLinearPeptideComplex(text));
        return made;
    }();
    return inputs;
}

/// Of 150 kDa and of 3 MDa, with the composition of proteins.
const Input& protein(qint64 kilodaltons)
{
    static const Input antibody(chem::defaultChemicalFactory()->constructMolecule(
        QStringLiteral("C6666H10473N1833O1994S56")));
    static const Input ribosome(chem::defaultChemicalFactory()->constructMolecule(
        QStringLiteral("C133320H209460N36660O39880S1120")));
    return kilodaltons == 150 ? antibody : ribosome;
}

void floorEnvelopesOfPeptides(benchmark::State& state)
{
    const auto factory = chem::defaultChemicalFactory();
    peptides(); // not part of what is measured
    for (auto _ : state) {
        for (const Input& peptide : peptides()) {
            QList<QPointF> envelope;
            factory->generateIsotopeEnvelope(peptide.molecule, 1, &envelope, false);
            benchmark::DoNotOptimize(envelope.constData());
        }
    }
    state.SetItemsProcessed(state.iterations() * peptideCount);
}
BENCHMARK(floorEnvelopesOfPeptides)->ThreadRange(1, 2);

void patternsOfPeptides(benchmark::State& state)
{
    peptides();
    ions::IsotopePattern pattern;
    for (auto _ : state) {
        for (const Input& peptide : peptides()) {
            benchmark::DoNotOptimize(pattern.fill(peptide.groups));
            benchmark::DoNotOptimize(pattern.shares().data());
        }
    }
    state.SetItemsProcessed(state.iterations() * peptideCount);
}
BENCHMARK(patternsOfPeptides)->ThreadRange(1, 2);

void floorEnvelopeOfProtein(benchmark::State& state)
{
    const auto factory = chem::defaultChemicalFactory();
    const Input& input = protein(state.range());
    for (auto _ : state) {
        QList<QPointF> envelope;
        factory->generateIsotopeEnvelope(input.molecule, 1, &envelope, false);
        benchmark::DoNotOptimize(envelope.constData());
    }
}
BENCHMARK(floorEnvelopeOfProtein)->Arg(150)->ThreadRange(1, 2);

void patternOfProtein(benchmark::State& state)
{
    const Input& input = protein(state.range());
    ions::IsotopePattern pattern;
    for (auto _ : state) {
        benchmark::DoNotOptimize(pattern.fill(input.groups));
        benchmark::DoNotOptimize(pattern.shares().data());
    }
}
BENCHMARK(patternOfProtein)->Arg(150)->Arg(3000)->ThreadRange(1, 2);

void fineStructureOfPeptides(benchmark::State& state)
{
    peptides();
    for (auto _ : state) {
        for (const Input& peptide : peptides())
            benchmark::DoNotOptimize(ions::fineStructure(peptide.groups));
    }
    state.SetItemsProcessed(state.iterations() * peptideCount);
}
BENCHMARK(fineStructureOfPeptides);

} // namespace
