#include "Tour.h"

using namespace Qt::StringLiterals;
using chem::FragmentType;

namespace {

/// Nusinersen, an approved antisense drug: 2'-O-methoxyethyl riboses (e) and thioate linkages (*)
/// throughout, with 5-methylcytosine (Q) for cytosine.
const QString nusinersen = u"eT*eQ*eA*eQ*eT*eT*eT*eQ*eA*eT*eA*eA*eT*eG*eQ*eT*eG*eG"_s;

void printDrug(const chem::ChemicalFactory& factory, const chem::MoleculeComplex& drug)
{
    printTitle(u"Nusinersen, 18 nucleotides with modified riboses and thioates"_s);
    out() << "  " << nusinersen << "\n  " << drug.formula().toString() << '\n';
    // Formula and mass of the sodium salt stand in the drug's prescribing information:
    // C234H323N61O128P17S17Na17, 7501.0.
    const chem::Molecule salt = factory.modifyMolecule(drug, u"Na1H-1"_s, 17);
    out() << "  sodium salt: " << salt.formula().toString() << '\n';
    printBesidePublished(u"average mass of it, Da"_s, salt.averageMass(), 7501.0, 1);
}

void printLadder(const chem::ChemicalFactory& factory, const chem::MoleculeComplex& drug)
{
    QList<QSharedPointer<chem::Fragment>> fragments;
    factory.generateLinearFragments(drug, &fragments);
    const qsizetype length = drug.residues.size() - 2;
    QList<double> w(length + 1);
    QList<double> aB(length + 1);
    for (const auto& fragment : std::as_const(fragments)) {
        const qsizetype monomers = fragment->residues.size() - 1;
        const FragmentType type = fragment->sites.first().toStrongRef()->type;
        if (type == FragmentType::W)
            w[monomers] = fragment->monoMass();
        else if (type == FragmentType::AB)
            aB[monomers] = fragment->monoMass();
    }
    out() << "\n  w and a-B ladder, neutral monoisotopic masses\n     #        a-B             w   "
             " #\n";
    for (qsizetype i = 1; i < length; ++i) {
        out() << QString::number(i).rightJustified(6) << ' '
              << (aB[i] > 0.0 ? column(aB[i], 3) : u"-"_s.rightJustified(10)) << "    "
              << column(w[length - i], 3) << QString::number(length - i).rightJustified(5) << '\n';
    }
}

void printGlycopeptide(const chem::ChemicalFactory& factory)
{
    printTitle(u"A glycan on a peptide"_s);
    const QString composition = u"HexNAc(2)Hex(5)"_s;
    const auto peptide = factory.constructLinearPeptideComplex(u"EEQYNSTYR"_s);
    const chem::Molecule glycopeptide = factory.modifyMoleculeWithGlycan(*peptide, composition);
    out() << "  EEQYNSTYR              " << peptide->formula().toString() << "  "
          << column(peptide->monoMass(), 4) << " Da\n  with " << composition << "   "
          << glycopeptide.formula().toString() << "  " << column(glycopeptide.monoMass(), 4)
          << " Da\n";
}

} // namespace

void tourOligonucleotides()
{
    const auto factory = chem::defaultChemicalFactory();
    const auto drug = factory->constructLinearOligoComplex(nusinersen);
    printDrug(*factory, *drug);
    printLadder(*factory, *drug);
    printGlycopeptide(*factory);
}
