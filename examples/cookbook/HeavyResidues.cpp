#include "Recipes.h"

void heavyResidues(QTextStream& out)
{
    //! [HeavyResidues]
    const auto factory = defaultChemicalFactory();
    const auto heavy = ChemicalFactory::construct(u"C13:1 N15:1"_s);

    // What a label adds is a difference of two molecules: its masses count, its formula is empty.
    const auto label = [&](const QString& atoms) {
        return heavy->constructMolecule(atoms) - factory->constructMolecule(atoms);
    };
    const QMap<QString, Molecule> labels = {{u"K"_s, label(u"C6N2"_s)}, {u"R"_s, label(u"C6N4"_s)}};

    const auto peptide = factory->constructLinearPeptideComplex(u"LLPAFLK"_s);
    out << "light " << QString::number(peptide->monoMass(), 'f', 4) << " Da\n";
    for (const auto& residue : std::as_const(peptide->residues)) {
        *residue += labels.value(residue->code);
        *peptide += labels.value(residue->code);
    }
    QList<SimpleFragment> fragments;
    generateLinearFragments(*peptide, fragments);
    out << "heavy " << QString::number(peptide->monoMass(), 'f', 4) << " Da, y1 "
        << QString::number(fragments.at(1).monoMass, 'f', 4) << " Da\n";
    for (auto entry = labels.cbegin(); entry != labels.cend(); ++entry)
        out << entry.key() << " +" << QString::number(entry->monoMass(), 'f', 5) << " Da\n";
    //! [HeavyResidues]
}
