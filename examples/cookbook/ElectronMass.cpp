#include "Recipes.h"

void electronMass(QTextStream& out)
{
    const Molecule electron = defaultChemicalFactory()->constructMolecule(u"E"_s);
    out << "E " << QString::number(electron.monoMass(), 'f', 8) << " Da monoisotopic, "
        << QString::number(electron.averageMass(), 'f', 8) << " Da average\n";
}
