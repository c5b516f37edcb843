#include "Recipes.h"

void massOfFormula(QTextStream& out)
{
    const auto factory = defaultChemicalFactory();
    //! [MassOfFormula]
    const Molecule caffeine = factory->constructMolecule(u"C8H10N4O2"_s);

    // Text with gains and losses describes a change, which can be applied any number of times.
    const Molecule glucose = factory->constructMolecule(u"C6H12O6"_s);
    const Molecule sodiated = factory->modifyMolecule(glucose, u"Na1H-1"_s, 1);

    // Molecules add and subtract with their masses.
    const Molecule maltose = glucose + glucose - factory->constructMolecule(u"H2O"_s);
    //! [MassOfFormula]
    for (const Molecule& molecule : {caffeine, sodiated, maltose}) {
        out << molecule.formula().toString() << ' ' << daltons(molecule.monoMass())
            << " monoisotopic, " << daltons(molecule.averageMass(), 3) << " average\n";
    }
}
