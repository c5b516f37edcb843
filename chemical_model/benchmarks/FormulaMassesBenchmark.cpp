// From formula text to both masses, beside a plain sum over doubles and a bare IsoSpec::Iso.

#include "BenchmarkInputs.h"
#include <ChemicalFactory.h>

#include <IsoSpec++/isoSpec++.h>
#include <benchmark/benchmark.h>

#include <IsoSpec++/element_tables.h>

namespace {

constexpr int formulaCount = 10000;

/// A formula as arrays, ready for the floors.
struct Prepared
{
    QList<int> isotopeNumbers;
    QList<int> counts;
    QList<double> masses;
    QList<double> abundances;
    QList<double> atomMono;
    QList<double> atomAverage;
};

Prepared prepare(const QString& text)
{
    Prepared prepared;
    const auto formula = chem::ChemicalFactory::parseChemicalFormula(text);
    const auto factory = chem::defaultChemicalFactory();
    const auto& counts = formula.elementCountMap();
    for (auto entry = counts.cbegin(); entry != counts.cend(); ++entry) {
        int isotopes = 0;
        for (std::size_t i = 0; i < ISOSPEC_NUMBER_OF_ISOTOPIC_ENTRIES; ++i) {
            if (entry.key().toLatin1() != IsoSpec::elem_table_symbol[i])
                continue;
            prepared.masses.append(IsoSpec::elem_table_mass[i]);
            prepared.abundances.append(IsoSpec::elem_table_probability[i]);
            ++isotopes;
        }
        prepared.isotopeNumbers.append(isotopes);
        prepared.counts.append(static_cast<int>(entry.value()));
        const chem::Molecule atom = factory->constructMolecule(entry.key());
        prepared.atomMono.append(atom.monoMass());
        prepared.atomAverage.append(atom.averageMass());
    }
    return prepared;
}

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
            list.append(prepare(text));
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
            for (qsizetype i = 0; i < formula.counts.size(); ++i) {
                mono += formula.counts[i] * formula.atomMono[i];
                average += formula.counts[i] * formula.atomAverage[i];
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
            const IsoSpec::Iso iso(static_cast<int>(formula.counts.size()),
                                   formula.isotopeNumbers.constData(), formula.counts.constData(),
                                   formula.masses.constData(), formula.abundances.constData());
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
