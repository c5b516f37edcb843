#include "Recipes.h"

namespace {

void printWithFirstIon(const MoleculeComplex& peptide, QTextStream& out)
{
    QList<SimpleFragment> fragments;
    generateLinearFragments(peptide, fragments);
    for (const auto& residue : std::as_const(peptide.residues)) {
        if (residue->code.size() == 1) // the ends have longer ones
            out << residue->code;
    }
    out << ' ' << daltons(peptide.monoMass()) << ", b1 " << daltons(fragments.first().monoMass)
        << '\n';
}

} // namespace

void modifiedPeptides(QTextStream& out)
{
    //! [ModifiedPeptides]
    // A fixed modification replaces the residue; a variable one is a letter that you write.
    const auto mine = ChemicalFactory::construct(QString());
    const auto aminoAcid = ChemicalFactory::AminoAcidBlock;
    mine->setBuildingBlock(aminoAcid, u"C"_s, u"Carbamidomethylcysteine"_s, u"C5H8N2O2S"_s);
    mine->setBuildingBlock(aminoAcid, u"m"_s, u"Methionine sulfoxide"_s, u"C5H9NO2S"_s);

    // A modification of an end goes to its residue, and so to the fragments, and to the total.
    const Molecule acetyl = mine->constructMolecule(u"C2H2O"_s);
    const auto acetylated = mine->constructLinearPeptideComplex(u"FMKVDGAKELPDVLERVK"_s);
    *acetylated->residues.first() += acetyl;
    *acetylated += acetyl;
    //! [ModifiedPeptides]
    printWithFirstIon(*mine->constructLinearPeptideComplex(u"CAGDLAGHYTR"_s), out);
    printWithFirstIon(*mine->constructLinearPeptideComplex(u"LYRDVmLENFR"_s), out);
    printWithFirstIon(*acetylated, out);
}
