#include "ChemicalFactory.h"
#include "core/ChemicalFormulaReader.h"
#include "factory/PreparedFactory.h"
#include "isotopes/FormulaMasses.h"
#include "isotopes/IsotopeEnvelope.h"
#include "isotopes/MassRatio.h"
#include "support/Logging.h"

namespace chem {

ChemicalFormula ChemicalFactory::parseChemicalFormula(const QString& text)
{
    return readChemicalFormula(text);
}

Molecule ChemicalFactory::constructMolecule(const QString& formula) const
{
    const ChemicalFormula parsed = readChemicalFormula(formula);
    double monoMass = 0.0;
    double averageMass = 0.0;
    calculateMassesForFormula(parsed, &monoMass, &averageMass);
    return Molecule(parsed, averageMass, monoMass);
}

Molecule ChemicalFactory::modifyMolecule(const Molecule& molecule, const QString& modification,
                                         int count) const
{
    const ChemicalFormula change = readChemicalFormula(modification);
    Molecule gain = constructMolecule(change.positiveFormulaString());
    Molecule loss = constructMolecule(change.negativeFormulaString());
    gain *= count;
    loss *= count;

    Molecule modified = molecule;
    modified += gain;
    modified -= loss;
    return modified;
}

namespace {

zel::Error outcome(const FormulaMasses& masses)
{
    return zel::Error(masses.hasKnownElement ? zel::NoError : zel::NoKnownElement);
}

} // namespace

// The two calculators write their outputs in opposite orders. A caller who hands one variable in as
// both outputs gets what is written last: the average mass from the first, the monoisotopic mass
// from the second.

zel::Error ChemicalFactory::calculateMassesForFormula(const ChemicalFormula& formula,
                                                      double* monoMass, double* averageMass) const
{
    const FormulaMasses masses =
        m_prepared ? massesOf(formula, m_prepared->isotopes->masses) : FormulaMasses();
    *monoMass = masses.mono;
    *averageMass = masses.average;
    return outcome(masses);
}

zel::Error ChemicalFactory::calculateMassesForElementCountArrays(const QList<QString>& elements,
                                                                 const QList<int>& counts,
                                                                 double* monoMass,
                                                                 double* averageMass) const
{
    const FormulaMasses masses =
        m_prepared ? massesOf(elements, counts, m_prepared->isotopes->masses) : FormulaMasses();
    *averageMass = masses.average;
    *monoMass = masses.mono;
    return outcome(masses);
}

Molecule ChemicalFactory::moleculeBasedOnAverageMass(const QString& formula,
                                                     double averageMass) const
{
    const ChemicalFormula composition = readChemicalFormula(formula);
    const double ratio = Prepared::averageToMonoMassRatio(*this, composition);
    return Molecule(composition, averageMass, ratio > 0.0 ? averageMass / ratio : 0.0);
}

Molecule ChemicalFactory::moleculeBasedOnMonoMass(const QString& formula, double monoMass) const
{
    const ChemicalFormula composition = readChemicalFormula(formula);
    const double ratio = Prepared::averageToMonoMassRatio(*this, composition);
    return Molecule(composition, ratio > 0.0 ? ratio * monoMass : 0.0, monoMass);
}

Molecule ChemicalFactory::generateIsotopeEnvelope(const Molecule& molecule, int charge,
                                                  QList<QPointF>* envelope, bool protonate) const
{
    const int charges = chargeNumber(charge);
    Molecule result = molecule;
    if (protonate) {
        Molecule hydrogens = hydrogen;
        hydrogens *= charges;
        result += hydrogens;
    }

    envelope->clear();
    if (!result.formula().isValid()) {
        qCWarning(genericCategory, "Isotope envelope can be calculated only with integer "
                                   "non-negative element counts");
        return result;
    }
    if (m_prepared)
        writeIsotopeEnvelope(result.formula(), m_prepared->isotopes->table, charges,
                             electron.monoMass(), envelope);
    return result;
}

} // namespace chem
