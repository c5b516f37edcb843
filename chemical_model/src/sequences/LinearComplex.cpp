#include "LinearComplex.h"

namespace chem {

AminoAcid::AminoAcid(const NamedMolecule& residue)
    : NamedMolecule(residue)
{
}

Nucleotide::Nucleotide(const NamedMolecule& base, const NamedMolecule& sugar,
                       const NamedMolecule& linkage, const QString& readableName,
                       const QString& label)
    : NamedMolecule(base, readableName, label)
    , nucleobase(base)
    , ribose(sugar)
    , phosphate(linkage)
{
    *this += ribose + phosphate;
}

ComplexResidue::ComplexResidue(const NamedMolecule& residue, int place)
    : NamedMolecule(residue)
    , position(place)
{
}

ComplexResidue::ComplexResidue(const Molecule& molecule, const QString& readableName,
                               const QString& label, int place)
    : NamedMolecule(molecule, readableName, label)
    , position(place)
{
}

FragmentationSite::FragmentationSite(FragmentType ionType, const Molecule& gained,
                                     const Molecule& loss)
    : delta(gained - loss)
    , type(ionType)
    , lost(loss)
{
}

MoleculeComplex::MoleculeComplex(const Molecule& total,
                                 const QList<QSharedPointer<ComplexResidue>>& allResidues,
                                 const QList<QList<QSharedPointer<FragmentationSite>>>& allSites)
    : NamedMolecule(total, QString(), QString())
    , residues(allResidues)
    , sites(allSites)
{
}

Fragment::Fragment(const Molecule& molecule, const QString& ionLabel,
                   const QList<QWeakPointer<ComplexResidue>>& ionResidues,
                   const QList<QWeakPointer<FragmentationSite>>& ionSites,
                   const MoleculeComplex* parent)
    : Molecule(molecule)
    , typeLabel(ionLabel)
    , residues(ionResidues)
    , sites(ionSites)
    , parentComplex(parent)
{
}

} // namespace chem
