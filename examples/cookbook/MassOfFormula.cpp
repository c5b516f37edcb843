#include "Recipes.h"

void massOfFormula(QTextStream& out)
{
    //! [MassOfFormula]
    const auto factory = defaultChemicalFactory();
    const Molecule caffeine = factory->constructMolecule(u"C8H10N4O2"_s);
    out << caffeine.formula().toString() << ' ' << QString::number(caffeine.monoMass(), 'f', 4)
        << " Da monoisotopic, " << QString::number(caffeine.averageMass(), 'f', 3)
        << " Da average\n";

    // Text with gains and losses describes a change. It can be applied any number of times.
    const Molecule glucose = factory->constructMolecule(u"C6H12O6"_s);
    const Molecule sodiated = factory->modifyMolecule(glucose, u"Na1H-1"_s, 1);
    out << sodiated.formula().toString() << ' ' << QString::number(sodiated.monoMass(), 'f', 4)
        << " Da\n";

    // Molecules add and subtract with their masses.
    const Molecule chain = glucose + glucose - factory->constructMolecule(u"H2O"_s);
    out << chain.formula().toString() << ' ' << QString::number(chain.monoMass(), 'f', 4)
        << " Da\n";

    // An element that does not exist weighs nothing. The mass calculator tells if none is known.
    double monoMass = 0.0;
    double averageMass = 0.0;
    const zel::Error error = factory->calculateMassesForFormula(
        ChemicalFactory::parseChemicalFormula(u"Xx2"_s), &monoMass, &averageMass);
    out << "Xx2: " << monoMass << " Da, " << (error.hasError() ? "an error" : "no error") << '\n';
    //! [MassOfFormula]
}
