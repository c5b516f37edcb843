#include "ChemicalFactory.h"
#include "ElementMasses.h"
#include "IsoData.h"
#include "TruncateToInt.h"

#include <algorithm>
#include <utility>

namespace chem {

namespace {

/// Isotopes of an element of biomolecules, at most.
constexpr qsizetype usualIsotopes = 4;

/// Masses that add up element by element, and whether any element was known.
struct MassSum
{
    double mono = 0.0;
    double average = 0.0;
    bool hasKnownElement = false;

    void add(const ElementMasses::Atom* atom, int count)
    {
        if (!atom)
            return;
        atom->requireUsable();
        const int atoms = std::max(count, 0); // what cannot be counted weighs nothing
        mono += atoms * atom->mono;
        average += atoms * atom->average;
        hasKnownElement = true;
    }
};

zel::Error outcome(bool isPriced)
{
    return zel::Error(isPriced ? zel::NoError : zel::NoKnownElement);
}

} // namespace

Molecule ChemicalFactory::constructMolecule(const QString& formula) const
{
    const ChemicalFormula parsed = parseChemicalFormula(formula);
    double monoMass = 0.0;
    double averageMass = 0.0;
    calculateMassesForFormula(parsed, &monoMass, &averageMass);
    return Molecule(parsed, averageMass, monoMass);
}

Molecule ChemicalFactory::modifyMolecule(const Molecule& molecule, const QString& modification,
                                         int count) const
{
    const ChemicalFormula change = parseChemicalFormula(modification);
    Molecule gain = constructMolecule(change.positiveFormulaString());
    Molecule loss = constructMolecule(change.negativeFormulaString());
    gain *= count;
    loss *= count;

    Molecule modified = molecule;
    modified += gain;
    modified -= loss;
    return modified;
}

zel::Error ChemicalFactory::calculateMassesForFormula(const ChemicalFormula& formula,
                                                      double* monoMass, double* averageMass) const
{
    MassSum gains;
    MassSum losses;
    const ElementMasses& atoms = elementMasses();
    const QMap<QString, double>& counts = formula.elementCountMap();
    for (auto entry = counts.cbegin(); entry != counts.cend(); ++entry) {
        const double count = entry.value();
        if (count > 0.0)
            gains.add(atoms.find(entry.key()), truncateToInt(count));
        else if (count < 0.0)
            losses.add(atoms.find(entry.key()), truncateToInt(-count));
    }

    *monoMass = gains.mono - losses.mono;
    *averageMass = gains.average - losses.average;
    // A formula without losses prices none, so only two failures together say that nothing is
    // known.
    return outcome(gains.hasKnownElement || losses.hasKnownElement);
}

zel::Error ChemicalFactory::calculateMassesForElementCountArrays(const QList<QString>& elements,
                                                                 const QList<int>& counts,
                                                                 double* monoMass,
                                                                 double* averageMass) const
{
    MassSum sum;
    const ElementMasses& atoms = elementMasses();
    for (qsizetype i = 0; i < elements.size(); ++i)
        sum.add(atoms.find(elements[i]), counts.value(i));

    *averageMass = sum.average;
    *monoMass = sum.mono;
    return outcome(sum.hasKnownElement);
}

void ChemicalFactory::priceElements()
{
    const auto masses = std::make_shared<ElementMasses>();
    for (auto element = isotopesBySymbol.cbegin(); element != isotopesBySymbol.cend(); ++element) {
        QList<double> isotopeMasses;
        QList<double> abundances;
        for (const qsizetype position : element.value()) {
            isotopeMasses.append(isotopes[position].mass);
            abundances.append(isotopes[position].abundance);
        }
        masses->add(element.key(), isotopeMasses, abundances);
    }
    m_elementMasses = masses;
}

bool ChemicalFactory::hasValidElements(const QList<QString>& elements) const
{
    return std::any_of(elements.cbegin(), elements.cend(), [this](const QString& element) {
        return isotopesBySymbol.contains(element);
    });
}

ChemicalFactory::IsoData ChemicalFactory::makeIsoWithDictionary(const QList<QString>& elements,
                                                                const QList<int>& counts) const
{
    QList<int> isotopeNumbers;
    QList<int> atomCounts;
    QList<double> isotopeMasses;
    QList<double> isotopeProbabilities;
    isotopeNumbers.reserve(elements.size());
    atomCounts.reserve(elements.size());
    isotopeMasses.reserve(elements.size() * usualIsotopes);
    isotopeProbabilities.reserve(elements.size() * usualIsotopes);

    for (qsizetype i = 0; i < elements.size(); ++i) {
        const auto positions = isotopesBySymbol.constFind(elements[i]);
        if (positions == isotopesBySymbol.cend())
            continue;
        for (const qsizetype position : *positions) {
            isotopeMasses.append(isotopes[position].mass);
            isotopeProbabilities.append(isotopes[position].abundance);
        }
        isotopeNumbers.append(static_cast<int>(positions->size()));
        atomCounts.append(std::max(counts.value(i), 0)); // IsoSpec++ reads astray below zero
    }

    requireUsableAbundances(isotopeProbabilities);
    IsoSpec::Iso iso(static_cast<int>(isotopeNumbers.size()), isotopeNumbers.constData(),
                     atomCounts.constData(), isotopeMasses.constData(),
                     isotopeProbabilities.constData());
    return {std::move(isotopeNumbers), std::move(atomCounts), std::move(isotopeMasses),
            std::move(isotopeProbabilities), std::move(iso)};
}

} // namespace chem
