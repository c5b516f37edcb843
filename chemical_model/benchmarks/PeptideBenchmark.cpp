// From peptide text to complexes, fragment ions and envelopes, each beside its floor: a plain loop
// over doubles, or the bare generator of IsoSpec++ with the same threshold.

#include "BenchmarkInputs.h"
#include "BenchmarkIsotopes.h"
#include <ChemicalModel.h>

#include <benchmark/benchmark.h>

#include <array>
#include <vector>

#ifdef __GLIBC__
#include <malloc.h>
#endif

namespace {

constexpr int peptideCount = 2000;

const QStringList& peptides()
{
    static const QStringList texts = randomPeptides(peptideCount, 7, 30);
    return texts;
}

struct Masses
{
    double average = 0.0;
    double mono = 0.0;
};

/// The masses of the residues by letter, for the floors.
const std::array<Masses, 128>& residueMasses()
{
    static const std::array<Masses, 128> masses = [] {
        std::array<Masses, 128> table;
        const auto factory = chem::defaultChemicalFactory();
        for (char16_t letter = u'A'; letter <= u'Z'; ++letter) {
            const auto complex = factory->constructLinearPeptideComplex(QString(QChar(letter)));
            table[letter] = {complex->residues[1]->averageMass(), complex->residues[1]->monoMass()};
        }
        return table;
    }();
    return masses;
}

void floorSumOfResidues(benchmark::State& state)
{
    const auto& masses = residueMasses();
    for (auto _ : state) {
        for (const QString& peptide : peptides()) {
            Masses total = {18.01, 18.01};
            for (const QChar letter : peptide) {
                total.average += masses[letter.unicode()].average;
                total.mono += masses[letter.unicode()].mono;
            }
            benchmark::DoNotOptimize(total);
        }
    }
    state.SetItemsProcessed(state.iterations() * peptideCount);
}
BENCHMARK(floorSumOfResidues);

void complexes(benchmark::State& state)
{
    const auto factory = chem::defaultChemicalFactory();
    for (auto _ : state) {
        for (const QString& peptide : peptides())
            benchmark::DoNotOptimize(factory->constructLinearPeptideComplex(peptide)->monoMass());
    }
    state.SetItemsProcessed(state.iterations() * peptideCount);
}
BENCHMARK(complexes);

void structuredMolecules(benchmark::State& state)
{
    const auto factory = chem::defaultChemicalFactory();
    for (auto _ : state) {
        for (const QString& peptide : peptides()) {
            const chem::Chain chain =
                chem::constructPeptideChain(QString(), QString(), peptide, factory.data());
            benchmark::DoNotOptimize(chem::constructStructuredMolecule(QString(), QString(),
                                                                       {chain}, {}, {},
                                                                       chem::MoleculeType::Peptide)
                                         .monoMass());
        }
    }
    state.SetItemsProcessed(state.iterations() * peptideCount);
}
BENCHMARK(structuredMolecules);

void floorFragmentMasses(benchmark::State& state)
{
    const auto& masses = residueMasses();
    constexpr std::array<double, 10> deltas = {-1, 1, -29, -28, 16, 17, 27, 28, -16, -15};
    std::vector<Masses> ions;
    for (auto _ : state) {
        for (const QString& peptide : peptides()) {
            ions.clear();
            Masses left;
            Masses right;
            const qsizetype length = peptide.size();
            for (qsizetype i = 0; i < length; ++i) {
                left.average += masses[peptide[i].unicode()].average;
                left.mono += masses[peptide[i].unicode()].mono;
                right.average += masses[peptide[length - 1 - i].unicode()].average;
                right.mono += masses[peptide[length - 1 - i].unicode()].mono;
                for (std::size_t ion = 0; ion < 5; ++ion)
                    ions.push_back({left.average + deltas[ion], left.mono + deltas[ion]});
                for (std::size_t ion = 5; ion < 10; ++ion)
                    ions.push_back({right.average + deltas[ion], right.mono + deltas[ion]});
            }
            benchmark::DoNotOptimize(ions.data());
        }
    }
    state.SetItemsProcessed(state.iterations() * peptideCount);
}
BENCHMARK(floorFragmentMasses);

QList<QSharedPointer<chem::MoleculeComplex>> preparedComplexes()
{
    QList<QSharedPointer<chem::MoleculeComplex>> prepared;
    for (const QString& peptide : peptides())
        prepared.append(chem::defaultChemicalFactory()->constructLinearPeptideComplex(peptide));
    return prepared;
}

void flatFragments(benchmark::State& state)
{
    const auto prepared = preparedComplexes();
    for (auto _ : state) {
        for (const auto& complex : prepared) {
            QList<chem::SimpleFragment> fragments;
            chem::generateLinearFragments(*complex, fragments);
            benchmark::DoNotOptimize(fragments.constData());
        }
    }
    state.SetItemsProcessed(state.iterations() * peptideCount);
}
BENCHMARK(flatFragments);

void richFragments(benchmark::State& state)
{
    const auto prepared = preparedComplexes();
    const auto factory = chem::defaultChemicalFactory();
    for (auto _ : state) {
        for (qsizetype i = 0; i < 200; ++i) {
            QList<QSharedPointer<chem::Fragment>> fragments;
            factory->generateLinearFragments(*prepared[i], &fragments);
            benchmark::DoNotOptimize(fragments.constData());
        }
    }
    state.SetItemsProcessed(state.iterations() * 200);
}
BENCHMARK(richFragments);

// Growth: one peptide of the average length, and of 10 and 100 times that.

void complexOfLength(benchmark::State& state)
{
    const int length = static_cast<int>(state.range(0));
    const QString text = randomPeptides(1, length, length).first();
    const auto factory = chem::defaultChemicalFactory();
    for (auto _ : state)
        benchmark::DoNotOptimize(factory->constructLinearPeptideComplex(text)->monoMass());
}
BENCHMARK(complexOfLength)->Arg(18)->Arg(180)->Arg(1800);

void flatFragmentsOfLength(benchmark::State& state)
{
    const int length = static_cast<int>(state.range(0));
    const auto complex = chem::defaultChemicalFactory()->constructLinearPeptideComplex(
        randomPeptides(1, length, length).first());
    for (auto _ : state) {
        QList<chem::SimpleFragment> fragments;
        chem::generateLinearFragments(*complex, fragments);
        benchmark::DoNotOptimize(fragments.constData());
    }
}
BENCHMARK(flatFragmentsOfLength)->Arg(18)->Arg(180)->Arg(1800);

/// The floor of the stated result: lists of the same fragments, copied one by one.
void floorCopyFragments(benchmark::State& state)
{
    QList<QList<chem::SimpleFragment>> prepared;
    for (const auto& complex : preparedComplexes()) {
        QList<chem::SimpleFragment> fragments;
        chem::generateLinearFragments(*complex, fragments);
        prepared.append(fragments);
    }
    for (auto _ : state) {
        for (QList<chem::SimpleFragment> fragments : std::as_const(prepared)) {
            fragments.detach();
            benchmark::DoNotOptimize(fragments.constData());
        }
    }
    state.SetItemsProcessed(state.iterations() * peptideCount);
}
BENCHMARK(floorCopyFragments);

#ifdef __GLIBC__ // other C libraries do not tell what is in use
/// What the fragment lists hold of the heap, a fragment.
void memoryOfFlatFragments(benchmark::State& state)
{
    const auto complexes = preparedComplexes();
    double bytes = 0.0;
    double fragmentCount = 0.0;
    for (auto _ : state) {
        const std::size_t before = mallinfo2().uordblks;
        QList<QList<chem::SimpleFragment>> lists(complexes.size());
        for (qsizetype i = 0; i < complexes.size(); ++i) {
            chem::generateLinearFragments(*complexes[i], lists[i]);
            fragmentCount += static_cast<double>(lists[i].size());
        }
        bytes += static_cast<double>(mallinfo2().uordblks - before);
    }
    state.counters["bytes_per_fragment"] = bytes / fragmentCount;
    state.counters["bytes_of_the_object"] = sizeof(chem::SimpleFragment);
}
BENCHMARK(memoryOfFlatFragments)->Iterations(1);
#endif

/// Peptides of 10 to 50 residues, or one protein of so many residues.
QList<chem::Molecule> moleculesOf(std::int64_t residues)
{
    QList<chem::Molecule> molecules;
    const QStringList texts =
        residues == 0 ? randomPeptides(200, 10, 50)
                      : randomPeptides(1, static_cast<int>(residues), static_cast<int>(residues));
    for (const QString& text : texts)
        molecules.append(*chem::defaultChemicalFactory()->constructLinearPeptideComplex(text));
    return molecules;
}

/// Hands `visit` a generator of each molecule, with the threshold of the envelopes.
template <typename Visit>
void forEachGenerator(benchmark::State& state, Visit visit)
{
    QList<IsoArrays> prepared;
    for (const chem::Molecule& molecule : moleculesOf(state.range(0)))
        prepared.append(IsoArrays(molecule.formula()));
    for (auto _ : state) {
        for (const IsoArrays& arrays : std::as_const(prepared)) {
            IsoSpec::IsoThresholdGenerator generator(arrays.iso(), 1e-7, true, 1000, 1000, true);
            visit(generator);
        }
    }
    state.SetItemsProcessed(state.iterations() * prepared.size());
}

void floorBareGenerator(benchmark::State& state)
{
    forEachGenerator(state, [](IsoSpec::IsoThresholdGenerator& generator) {
        double sum = 0.0;
        while (generator.advanceToNextConfiguration())
            sum += generator.mass() * generator.prob();
        benchmark::DoNotOptimize(sum);
    });
}
BENCHMARK(floorBareGenerator)->Arg(0)->Arg(225)->Arg(1350)->Unit(benchmark::kMicrosecond);

/// The least that gives an envelope: the same loop, with the configurations sorted into points.
void floorBinnedGenerator(benchmark::State& state)
{
    forEachGenerator(state, [](IsoSpec::IsoThresholdGenerator& generator) {
        std::vector<QPointF> points(100);
        const double lightest = generator.getLightestPeakMass();
        while (generator.advanceToNextConfiguration()) {
            const double mass = generator.mass();
            const double probability = generator.prob();
            const auto bin = static_cast<std::size_t>(mass - lightest + 0.5);
            if (bin >= points.size())
                points.resize(bin + 1);
            points[bin].rx() += mass * probability;
            points[bin].ry() += probability;
        }
        benchmark::DoNotOptimize(points.data());
    });
}
BENCHMARK(floorBinnedGenerator)->Arg(0)->Arg(225)->Arg(1350)->Unit(benchmark::kMicrosecond);

void envelopes(benchmark::State& state)
{
    const QList<chem::Molecule> molecules = moleculesOf(state.range(0));
    const auto factory = chem::defaultChemicalFactory();
    for (auto _ : state) {
        for (const chem::Molecule& molecule : molecules) {
            QList<QPointF> envelope;
            factory->generateIsotopeEnvelope(molecule, 1, &envelope, false);
            benchmark::DoNotOptimize(envelope.constData());
        }
    }
    state.SetItemsProcessed(state.iterations() * molecules.size());
}
BENCHMARK(envelopes)->Arg(0)->Arg(225)->Arg(1350)->Unit(benchmark::kMicrosecond);

} // namespace
