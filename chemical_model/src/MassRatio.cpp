#include "ChemicalFactory.h"

namespace chem {

/// The average mass for each dalton of monoisotopic mass; 0.0 for a formula that weighs nothing.
/// Counts are taken as they are, fractions and losses included.
double ChemicalFactory::averageToMonoMassRatio(const ChemicalFormula& formula) const
{
    double averageSum = 0.0;
    double monoSum = 0.0;
    const QMap<QString, double>& counts = formula.elementCountMap();
    for (auto entry = counts.cbegin(); entry != counts.cend(); ++entry) {
        const Molecule atom = constructMolecule(entry.key());
        averageSum += entry.value() * atom.averageMass();
        monoSum += entry.value() * atom.monoMass();
    }
    return monoSum <= 0.0 ? 0.0 : averageSum / monoSum;
}

Molecule ChemicalFactory::moleculeBasedOnAverageMass(const QString& formula,
                                                     double averageMass) const
{
    const ChemicalFormula composition = parseChemicalFormula(formula);
    const double ratio = averageToMonoMassRatio(composition);
    const double monoMass = ratio > 0.0 ? averageMass / ratio : 0.0;
    return Molecule(composition, averageMass, monoMass);
}

Molecule ChemicalFactory::moleculeBasedOnMonoMass(const QString& formula, double monoMass) const
{
    const ChemicalFormula composition = parseChemicalFormula(formula);
    const double ratio = averageToMonoMassRatio(composition);
    const double averageMass = ratio > 0.0 ? ratio * monoMass : 0.0;
    return Molecule(composition, averageMass, monoMass);
}

} // namespace chem
