// From formula text to both masses, beside a plain sum over doubles and a bare IsoSpec::Iso.

#include "BenchmarkInputs.h"
#include "BenchmarkIsotopes.h"
#include <ChemicalFactory.h>

#include <benchmark/benchmark.h>

namespace {

constexpr int formulaCount = 10000;

/// A formula ready for the floors.
struct Prepared
{
    explicit Prepared(const chem::ChemicalFormula& formula)
        : arrays(formula)
    {
        const auto factory = chem::defaultChemicalFactory();
        for (const QString& symbol : formula.elementCountMap().keys()) {
            const chem::Molecule atom = factory->constructMolecule(symbol);
            atomMono.append(atom.monoMass());
            atomAverage.append(atom.averageMass());
        }
    }

    IsoArrays arrays;
    QList<double> atomMono;
    QList<double> atomAverage;
};

const QStringList& formulas()
{
    static const QStringList texts = randomFormulas(formulaCount);
    return texts;
}

const QList<Prepared>& preparedFormulas()
{
    static const QList<Prepared> all = [] {
        QList<Prepared> list;
        for (const QString& text : formulas())
            list.append(Prepared(chem::ChemicalFactory::parseChemicalFormula(text)));
        return list;
    }();
    return all;
}

void floorPlainSum(benchmark::State& state)
{
    preparedFormulas(); // not part of what is measured
    for (auto _ : state) {
        for (const Prepared& formula : preparedFormulas()) {
            double mono = 0.0;
            double average = 0.0;
            for (qsizetype i = 0; i < formula.arrays.atomCounts.size(); ++i) {
                mono += formula.arrays.atomCounts[i] * formula.atomMono[i];
                average += formula.arrays.atomCounts[i] * formula.atomAverage[i];
            }
            benchmark::DoNotOptimize(mono);
            benchmark::DoNotOptimize(average);
        }
    }
    state.SetItemsProcessed(state.iterations() * formulaCount);
}
BENCHMARK(floorPlainSum);

void floorBareIso(benchmark::State& state)
{
    for (auto _ : state) {
        for (const Prepared& formula : preparedFormulas()) {
            const IsoSpec::Iso iso = formula.arrays.iso();
            benchmark::DoNotOptimize(iso.getMonoisotopicPeakMass());
            benchmark::DoNotOptimize(iso.getTheoreticalAverageMass());
        }
    }
    state.SetItemsProcessed(state.iterations() * formulaCount);
}
BENCHMARK(floorBareIso);

void massesOfFormulas(benchmark::State& state)
{
    const auto factory = chem::defaultChemicalFactory();
    QList<chem::ChemicalFormula> parsed;
    for (const QString& text : formulas())
        parsed.append(chem::ChemicalFactory::parseChemicalFormula(text));
    for (auto _ : state) {
        for (const chem::ChemicalFormula& formula : std::as_const(parsed)) {
            double mono = 0.0;
            double average = 0.0;
            factory->calculateMassesForFormula(formula, &mono, &average);
            benchmark::DoNotOptimize(mono);
            benchmark::DoNotOptimize(average);
        }
    }
    state.SetItemsProcessed(state.iterations() * formulaCount);
}
BENCHMARK(massesOfFormulas);

void moleculesFromText(benchmark::State& state)
{
    const auto factory = chem::defaultChemicalFactory();
    for (auto _ : state) {
        for (const QString& text : formulas())
            benchmark::DoNotOptimize(factory->constructMolecule(text).monoMass());
    }
    state.SetItemsProcessed(state.iterations() * formulaCount);
}
BENCHMARK(moleculesFromText);

void constructDefaultFactory(benchmark::State& state)
{
    for (auto _ : state)
        benchmark::DoNotOptimize(chem::ChemicalFactory::construct(QString()));
}
BENCHMARK(constructDefaultFactory);

void constructLabelledFactory(benchmark::State& state)
{
    for (auto _ : state)
        benchmark::DoNotOptimize(chem::ChemicalFactory::construct(QStringLiteral("C13:99 C12:1")));
}
BENCHMARK(constructLabelledFactory);

} // namespace
