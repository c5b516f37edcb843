#include "Recipes.h"

void neutralLosses(QTextStream& out)
{
    const auto factory = defaultChemicalFactory();
    const Molecule water = factory->constructMolecule(u"H2O"_s);
    const Molecule ammonia = factory->constructMolecule(u"NH3"_s);
    const auto peptide = factory->constructLinearPeptideComplex(u"YGGFM"_s);

    // The fragments of the factory are molecules: losses are subtracted, formula and masses alike.
    QList<QSharedPointer<Fragment>> fragments;
    factory->generateLinearFragments(*peptide, &fragments);
    for (const auto& fragment : std::as_const(fragments)) {
        const qsizetype length = fragment->residues.size() - 1; // a terminal is one of them
        if (fragment->typeLabel != u"b" || length < 2)
            continue;
        //! [NeutralLosses]
        const Molecule withoutWater = *fragment - water;
        const Molecule withoutAmmonia = *fragment - ammonia;
        //! [NeutralLosses]
        out << 'b' << length << ' ' << QString::number(fragment->monoMass(), 'f', 4) << ", -H2O "
            << QString::number(withoutWater.monoMass(), 'f', 4) << ", -NH3 "
            << QString::number(withoutAmmonia.monoMass(), 'f', 4) << ' '
            << withoutAmmonia.formula().toString() << '\n';
    }
}
