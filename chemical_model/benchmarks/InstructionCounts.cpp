// The workloads of the library whose instructions are counted.

#include "BenchmarkInputs.h"
#include "BenchmarkProteins.h"
#include "CountedWorkloads.h"

#include <algorithm>
#include <functional>
#include <memory>

namespace {

using Complexes = QList<QSharedPointer<chem::MoleculeComplex>>;

const QSharedPointer<const chem::ChemicalFactory>& factory()
{
    static const auto shared = chem::defaultChemicalFactory();
    return shared;
}

template <typename Do>
std::function<void()> forEachOf(const QStringList& texts, Do visit)
{
    return [texts, visit] {
        for (const QString& text : texts)
            visit(text);
    };
}

QStringList peptides(int count)
{
    return randomPeptides(count, 7, 30);
}

Complexes peptideComplexes(int count)
{
    Complexes complexes;
    for (const QString& peptide : peptides(count))
        complexes.append(factory()->constructLinearPeptideComplex(peptide));
    return complexes;
}

Complexes oligoComplexes(int count)
{
    Complexes complexes;
    for (const QString& strand : randomOligos(count))
        complexes.append(factory()->constructLinearOligoComplex(strand));
    return complexes;
}

std::function<void()> flatFragments(const Complexes& complexes)
{
    return [complexes] {
        for (const auto& complex : complexes) {
            QList<chem::SimpleFragment> fragments;
            chem::generateLinearFragments(*complex, fragments);
        }
    };
}

std::function<void()> richFragments(const Complexes& complexes)
{
    return [complexes] {
        for (const auto& complex : complexes) {
            QList<QSharedPointer<chem::Fragment>> fragments;
            factory()->generateLinearFragments(*complex, &fragments);
        }
    };
}

std::function<void()> envelopes(const Complexes& complexes)
{
    return [complexes] {
        for (const auto& complex : complexes) {
            QList<QPointF> envelope;
            factory()->generateIsotopeEnvelope(*complex, 1, &envelope, false);
        }
    };
}

std::function<void()> matches(int count)
{
    std::vector<double> sorted = randomMasses(100000, 20261123);
    std::sort(sorted.begin(), sorted.end());
    const QList<chem::ObservedMassEntity> observed(sorted.begin(), sorted.end());
    const std::vector<double> drawn = randomMasses(static_cast<std::size_t>(count), 20261124);
    const std::vector<chem::MoleculeEntity> models(drawn.begin(), drawn.end());
    return [observed, models] {
        chem::MatchingParameters parameters;
        parameters.massTolerance = {10.0, 1};
        for (const chem::MoleculeEntity& model : models)
            chem::match(model, observed, parameters);
    };
}

const Workload workloads[] = {
    {"formula-text-to-masses", 1000,
     [](int count) {
         return forEachOf(randomFormulas(count),
                          [](const QString& text) { factory()->constructMolecule(text); });
     }},
    {"peptide-complex", 200,
     [](int count) {
         return forEachOf(peptides(count), [](const QString& text) {
             factory()->constructLinearPeptideComplex(text);
         });
     }},
    {"peptide-structured-molecule", 200,
     [](int count) {
         return forEachOf(peptides(count), [](const QString& text) {
             const chem::Chain chain =
                 chem::constructPeptideChain(QString(), QString(), text, factory().data());
             chem::constructStructuredMolecule(QString(), QString(), {chain}, {}, {},
                                               chem::MoleculeType::Peptide);
         });
     }},
    {"peptide-flat-fragments", 200,
     [](int count) {
         return flatFragments(peptideComplexes(count));
     }},
    {"peptide-rich-fragments", 50,
     [](int count) {
         return richFragments(peptideComplexes(count));
     }},
    {"oligo-complex", 200,
     [](int count) {
         return forEachOf(randomOligos(count), [](const QString& text) {
             factory()->constructLinearOligoComplex(text);
         });
     }},
    {"oligo-validity", 200,
     [](int count) {
         return forEachOf(randomOligos(count),
                          [](const QString& text) { factory()->isValidOligoSequence(text); });
     }},
    {"oligo-flat-fragments", 200,
     [](int count) {
         return flatFragments(oligoComplexes(count));
     }},
    {"peptide-envelope", 20,
     [](int count) {
         return envelopes(peptideComplexes(count));
     }},
    {"match", 1000, matches},
    {"clip", 99, // 50 residues: the whole, 49 trims of its start and 49 of its end
     [](int) {
         const chem::MoleculeEntity protein = benchmarkProteins::protein(50);
         return std::function<void()>([protein] {
             chem::generateClips(protein, nullptr, chem::ClipOptions::createClipAll());
         });
     }},
    {"located-modify", 10,
     [](int count) {
         const chem::MoleculeEntity protein = benchmarkProteins::protein(500);
         const auto step = std::make_shared<const chem::Modify>(
             chem::Modification(benchmarkProteins::phosphorylation(), {{0, 60}}));
         return std::function<void()>([protein, step, count] {
             for (int i = 0; i < count; ++i)
                 step->transform(protein);
         });
     }},
    {"default-factory", 1,
     [](int) {
         return std::function<void()>([] { chem::ChemicalFactory::construct(QString()); });
     }},
    {"labelled-factory", 1,
     [](int) {
         return std::function<void()>(
             [] { chem::ChemicalFactory::construct(QStringLiteral("C13:99 C12:1")); });
     }},
};

} // namespace

int main(int argumentCount, char* arguments[])
{
    return runWorkload(workloads, argumentCount, arguments);
}
