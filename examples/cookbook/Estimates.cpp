#include "Recipes.h"

void estimates(QTextStream& out)
{
    const QString ubiquitin =
        u"MQIFVKTLTGKTITLEVEPSDTIENVKAKIQDKEGIPPDQQRLIFAGKQLEDGRTLSDYNIQKESTLHLVLRLRGG"_s;
    //! [Estimates]
    const auto factory = defaultChemicalFactory();
    const auto protein = factory->constructLinearPeptideComplex(ubiquitin);
    const Molecule estimate = factory->moleculeBasedOnAverageMass(
        u"C4.9384H7.7583N1.3577O1.4773S0.0417"_s, protein->averageMass());
    out << "estimated " << QString::number(estimate.monoMass(), 'f', 2) << " Da, exact "
        << QString::number(protein->monoMass(), 'f', 2) << " Da\n";
    //! [Estimates]
}
