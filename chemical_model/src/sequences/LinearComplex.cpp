#include "LinearComplex.h"

namespace chem {

AminoAcid::AminoAcid(const NamedMolecule& residue)
    : NamedMolecule(residue)
{
}

Nucleotide::Nucleotide(const NamedMolecule& nucleobase_, const NamedMolecule& ribose_,
                       const NamedMolecule& phosphate_, const QString& name_, const QString& code_)
    : NamedMolecule(nucleobase_, name_, code_)
    , nucleobase(nucleobase_)
    , ribose(ribose_)
    , phosphate(phosphate_)
{
    *this += ribose + phosphate;
}

ComplexResidue::ComplexResidue(const NamedMolecule& residue, int position_)
    : NamedMolecule(residue)
    , position(position_)
{
}

ComplexResidue::ComplexResidue(const Molecule& molecule, const QString& name_, const QString& code_,
                               int position_)
    : NamedMolecule(molecule, name_, code_)
    , position(position_)
{
}

FragmentationSite::FragmentationSite(FragmentType type_, const Molecule& gained,
                                     const Molecule& lost_)
    : delta(gained - lost_)
    , type(type_)
    , lost(lost_)
{
}

MoleculeComplex::MoleculeComplex(const Molecule& total,
                                 const QList<QSharedPointer<ComplexResidue>>& residues_,
                                 const QList<QList<QSharedPointer<FragmentationSite>>>& sites_)
    : NamedMolecule(total, QString(), QString())
    , residues(residues_)
    , sites(sites_)
{
}

Fragment::Fragment(const Molecule& molecule, const QString& typeLabel_,
                   const QList<QWeakPointer<ComplexResidue>>& residues_,
                   const QList<QWeakPointer<FragmentationSite>>& sites_,
                   const MoleculeComplex* parentComplex_)
    : Molecule(molecule)
    , typeLabel(typeLabel_)
    , residues(residues_)
    , sites(sites_)
    , parentComplex(parentComplex_)
{
}

} // namespace chem
