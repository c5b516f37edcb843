#pragma once

#include "FragmentType.h"
#include "Molecule.h"
#include <zel_chemical_model/ChemicalModelExport.h>

#include <QList>
#include <QSharedPointer>
#include <QString>
#include <QWeakPointer>

/// \addtogroup chains
/// \details The constructors of ChemicalFactory lay chains out, the two generators of linear
/// fragments walk them: chem::generateLinearFragments() for masses alone,
/// ChemicalFactory::generateLinearFragments() for whole molecules. All types are plain structures:
/// finished ones may be read by any number of threads at once.

namespace chem {

/// \addtogroup chains
/// @{

/// An amino-acid residue: its one-letter code, its full name and the residue's molecule.
class ZEL_CHEMICAL_MODEL_EXPORT AminoAcid : public NamedMolecule
{
public:
    using NamedMolecule::NamedMolecule;
    /// Makes a residue of no mass with empty texts, as a reader makes of an unknown letter.
    AminoAcid() = default;
    /// Makes a residue with the molecule, name and code of a dictionary entry.
    explicit AminoAcid(const NamedMolecule& residue);
};

/// A nucleotide: a base on a sugar, with the phosphate on its 3' side. The inherited molecule is
/// always their sum, the inherited code the nucleotide's text and the inherited name that of the
/// base. To change a part, build a new nucleotide.
class ZEL_CHEMICAL_MODEL_EXPORT Nucleotide : public NamedMolecule
{
public:
    /// Joins the three parts: the masses are those of base plus sugar plus phosphate.
    Nucleotide(const NamedMolecule& nucleobase, const NamedMolecule& ribose,
               const NamedMolecule& phosphate, const QString& name, const QString& code);

    NamedMolecule nucleobase; ///< The base; a number in its place is a bare mass named "~~~".
    NamedMolecule ribose;     ///< The sugar.
    NamedMolecule phosphate;  ///< The linkage to the next nucleotide; empty where there is none.
};

/// A terminal or monomer in its place in a complex.
class ZEL_CHEMICAL_MODEL_EXPORT ComplexResidue : public NamedMolecule
{
public:
    /// Puts a named molecule into its place; any position is taken as it stands.
    ComplexResidue(const NamedMolecule& residue, int position);
    /// Puts a molecule into its place. Mind the order: the name comes before the code.
    ComplexResidue(const Molecule& molecule, const QString& name, const QString& code,
                   int position);

    int position =
        0; ///< 0 for the left terminal, 1 to n for the monomers, n + 1 for the right terminal.
};

/// One way in which a chain can break at one position.
class ZEL_CHEMICAL_MODEL_EXPORT FragmentationSite
{
public:
    /// Makes a site whose delta is `gained` minus `lost`, masses and formula alike.
    FragmentationSite(FragmentType type, const Molecule& gained, const Molecule& lost);

    Molecule delta; ///< What the ion adds to the sum of its residues; negative counts are normal.
    FragmentType type; ///< The ion type.
    Molecule lost;     ///< What the break loses. For readers of the site; the generators use delta.
};

/// A chain with its terminals, its total and its fragmentation sites.
///
/// The inherited molecule is the sum of all residues; the inherited texts are null. Residues and
/// sites are shared: the monomers of a peptide all hold the same ten sites, so never write to a
/// site through one position's list.
///
/// \code
/// const auto peptide = defaultChemicalFactory()->constructLinearPeptideComplex(u"DRVYIHPF"_s);
/// peptide->residues.size();                            // 10: two terminals, eight residues
/// const QString first = peptide->residues.at(1)->name; // "Aspartic acid"
/// peptide->sites.at(1).size();                         // 10 ways to break behind it
/// \endcode
class ZEL_CHEMICAL_MODEL_EXPORT MoleculeComplex : public NamedMolecule
{
public:
    /// Makes a complex of parts that belong together: nothing sums them or tests that `residues`
    /// and `sites` have one length, which the generators of fragments rely on.
    MoleculeComplex(const Molecule& total, const QList<QSharedPointer<ComplexResidue>>& residues,
                    const QList<QList<QSharedPointer<FragmentationSite>>>& sites);

    /// Left terminal, monomers in order, right terminal: n + 2 entries.
    QList<QSharedPointer<ComplexResidue>> residues;

    /// The ways to break, one list for each entry of residues. The lists of the terminals are
    /// empty.
    QList<QList<QSharedPointer<FragmentationSite>>> sites;
};

/// A fragment ion as a neutral composition, with links into the complex that it came from.
///
/// The links are weak: keep the complex alive as long as you follow them. The molecule and the
/// label stay valid without it.
class ZEL_CHEMICAL_MODEL_EXPORT Fragment : public Molecule
{
public:
    /// Makes an ion from what a generator has at hand. `parentComplex` may be null.
    Fragment(const Molecule& molecule, const QString& typeLabel,
             const QList<QWeakPointer<ComplexResidue>>& residues,
             const QList<QWeakPointer<FragmentationSite>>& sites,
             const MoleculeComplex* parentComplex);

    QString typeLabel; ///< The ion's label, such as "b" or "z.".
    QList<QWeakPointer<ComplexResidue>>
        residues; ///< Its residues in chain order, terminal included.
    QList<QWeakPointer<FragmentationSite>> sites;   ///< The site at which it broke: one entry.
    const MoleculeComplex* parentComplex = nullptr; ///< The complex; dangles once that is gone.
};

/// @}

} // namespace chem

Q_DECLARE_TYPEINFO(chem::AminoAcid, Q_RELOCATABLE_TYPE);
Q_DECLARE_TYPEINFO(chem::Nucleotide, Q_RELOCATABLE_TYPE);
