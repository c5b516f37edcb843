#include "Recipes.h"

void modifiedPeptides(QTextStream& out)
{
    //! [ModifiedPeptides]
    // A fixed modification replaces the residue; a variable one is a letter that you write.
    const auto factory = ChemicalFactory::construct(QString());
    const auto aminoAcid = ChemicalFactory::AminoAcidBlock;
    factory->setBuildingBlock(aminoAcid, u"C"_s, u"Carbamidomethylcysteine"_s, u"C5H8N2O2S"_s);
    factory->setBuildingBlock(aminoAcid, u"m"_s, u"Methionine sulfoxide"_s, u"C5H9NO2S"_s);
    const Molecule acetyl = factory->constructMolecule(u"C2H2O"_s);

    const QList<QString> sequences = {u"CAGDLAGHYTR"_s, u"LYRDVmLENFR"_s, u"FMKVDGAKELPDVLERVK"_s};
    for (const QString& sequence : sequences) {
        const auto peptide = factory->constructLinearPeptideComplex(sequence);
        // A modification of an end goes to the end's residue and to the total: this complex is
        // yours. Its fragments have the group from then on.
        if (sequence.startsWith(u'F')) {
            *peptide->residues.first() += acetyl;
            *peptide += acetyl;
        }
        QList<SimpleFragment> fragments;
        generateLinearFragments(*peptide, fragments);
        out << sequence << ' ' << QString::number(peptide->monoMass(), 'f', 4) << " Da, b1 "
            << QString::number(fragments.first().monoMass, 'f', 4) << " Da\n";
    }
    //! [ModifiedPeptides]
}
