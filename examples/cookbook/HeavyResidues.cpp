#include "Recipes.h"

void heavyResidues(QTextStream& out)
{
    const auto factory = defaultChemicalFactory();
    //! [HeavyResidues]
    const auto heavy = ChemicalFactory::construct(u"C13:1 N15:1"_s);

    // What a label adds is a difference of two molecules: its masses count, its formula is empty.
    const auto label = [&](const QString& atoms) {
        return heavy->constructMolecule(atoms) - factory->constructMolecule(atoms);
    };
    const QMap<QString, Molecule> labels = {{u"K"_s, label(u"C6N2"_s)}, {u"R"_s, label(u"C6N4"_s)}};

    const auto peptide = factory->constructLinearPeptideComplex(u"LLPAFLK"_s);
    for (const auto& residue : std::as_const(peptide->residues)) {
        *residue += labels.value(residue->code);
        *peptide += labels.value(residue->code);
    }
    //! [HeavyResidues]
    QList<SimpleFragment> fragments;
    generateLinearFragments(*peptide, fragments);
    const auto light = factory->constructLinearPeptideComplex(u"LLPAFLK"_s);
    out << "light " << daltons(light->monoMass()) << '\n'
        << "heavy " << daltons(peptide->monoMass()) << ", y1 " << daltons(fragments.at(1).monoMass)
        << '\n';
    for (auto entry = labels.cbegin(); entry != labels.cend(); ++entry)
        out << entry.key() << " +" << daltons(entry->monoMass(), 5) << '\n';
}
