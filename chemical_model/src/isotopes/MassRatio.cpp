#include "isotopes/MassRatio.h"

namespace chem {

double averageToMonoMassRatio(const ChemicalFormula& formula, const ElementMasses& atoms)
{
    double averageSum = 0.0;
    double monoSum = 0.0;
    const QMap<QString, double>& counts = formula.elementCountMap();
    for (auto entry = counts.cbegin(); entry != counts.cend(); ++entry) {
        // What is unknown takes part with masses of zero: an infinite count of it is no number.
        const ElementMasses::Atom* const known = atoms.find(entry.key());
        const ElementMasses::Atom atom = known ? *known : ElementMasses::Atom();
        atom.requireUsable();
        averageSum += entry.value() * atom.average;
        monoSum += entry.value() * atom.mono;
    }
    return monoSum <= 0.0 ? 0.0 : averageSum / monoSum;
}

} // namespace chem
