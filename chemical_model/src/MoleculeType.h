#pragma once

#include <zel_chemical_model/ChemicalModelExport.h>

#include <QObject>

namespace chem {

/// The registered enumeration of molecule types. Qt's meta-object system knows the values by name:
/// they print with QDebug and go through QDataStream as 32-bit integers, unchecked.
namespace ZEL_QEnumsMoleculeType {

Q_NAMESPACE_EXPORT(ZEL_CHEMICAL_MODEL_EXPORT)

/// \ingroup molecules
/// What a molecule, a chain or a residue is. The numbers are stable: saved streams hold them.
enum class MoleculeType {
    Peptide = 0,                ///< A chain of amino acids.
    Protein = 1,                ///< One or more peptide chains with their links.
    OligoNucleotide = 2,        ///< A chain of nucleotides.
    Sugar = 3,                  ///< A monosaccharide or glycan.
    Link = 4,                   ///< A bridge between residues.
    AminoAcid = 5,              ///< One amino-acid residue.
    Nucleotide = 6,             ///< One nucleotide.
    Ribose = 7,                 ///< The sugar of a nucleotide.
    Nucleobase = 8,             ///< The base of a nucleotide.
    Phosphate = 9,              ///< The linkage of a nucleotide.
    PostTransModification = 10, ///< A post-translational modification.
    FivePrimeTerminal = 11,     ///< The 5' end of an oligonucleotide.
    ThreePrimeTerminal = 12,    ///< The 3' end of an oligonucleotide.
    NTerminal = 13,             ///< The amino end of a peptide.
    CTerminal = 14,             ///< The carboxyl end of a peptide.
    MassValue = 15,             ///< A bare mass. For callers; the library does not assign it.
    Averagine = 16, ///< An estimated composition. For callers; the library does not assign it.
    Unknown = 17,   ///< Not stated.
};
Q_ENUM_NS(MoleculeType)

} // namespace ZEL_QEnumsMoleculeType

using ZEL_QEnumsMoleculeType::MoleculeType;

} // namespace chem
