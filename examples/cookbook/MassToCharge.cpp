#include "Recipes.h"

#include <cstdlib>

//! [MassToChargeFunction]
/// The m/z of a neutral monoisotopic mass with `charge` protons on it, or off it if negative.
double massToCharge(double monoMass, int charge, const ChemicalFactory& factory)
{
    const double proton =
        factory.constructMolecule(u"H"_s).monoMass() - factory.constructMolecule(u"E"_s).monoMass();
    return (monoMass + charge * proton) / std::abs(charge);
}
//! [MassToChargeFunction]

void massToCharge(QTextStream& out)
{
    const auto factory = defaultChemicalFactory();
    const auto peptide = factory->constructLinearPeptideComplex(u"DRVYIHPF"_s);
    for (const int charge : {1, 2, 3, -1}) {
        out << QString::number(charge).rightJustified(2) << ": "
            << QString::number(massToCharge(peptide->monoMass(), charge, *factory), 'f', 4) << '\n';
    }
}
