#include "isotopes/FormulaMasses.h"

#include "support/TruncateToInt.h"

#include <algorithm>

namespace chem {

namespace {

void addAtoms(const ElementMasses::Atom* atom, int count, FormulaMasses* sum)
{
    if (!atom)
        return;
    atom->requireUsable();
    const int atoms = std::max(count, 0); // what cannot be counted weighs nothing
    sum->mono += atoms * atom->mono;
    sum->average += atoms * atom->average;
    sum->hasKnownElement = true;
}

} // namespace

FormulaMasses massesOf(const ChemicalFormula& formula, const ElementMasses& atoms)
{
    FormulaMasses gains;
    FormulaMasses losses;
    const QMap<QString, double>& counts = formula.elementCountMap();
    for (auto entry = counts.cbegin(); entry != counts.cend(); ++entry) {
        const double count = entry.value();
        if (count > 0.0)
            addAtoms(atoms.find(entry.key()), truncateToInt(count), &gains);
        else if (count < 0.0)
            addAtoms(atoms.find(entry.key()), truncateToInt(-count), &losses);
    }
    return {gains.mono - losses.mono, gains.average - losses.average,
            gains.hasKnownElement || losses.hasKnownElement};
}

FormulaMasses massesOf(const QList<QString>& elements, const QList<int>& counts,
                       const ElementMasses& atoms)
{
    FormulaMasses sum;
    for (qsizetype i = 0; i < elements.size(); ++i)
        addAtoms(atoms.find(elements[i]), counts.value(i), &sum);
    return sum;
}

} // namespace chem
