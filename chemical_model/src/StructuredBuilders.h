#pragma once

#include "StructuredMolecule.h"
#include <zel_chemical_model/ChemicalModelExport.h>

/// \addtogroup molecules
/// \details The functions that build validate nothing: a chain is what the reader of its text makes
/// of it, and lists are taken as they stand. A factory that reads text must not be null. The
/// functions own nothing of what they are given: results share it. Any number of threads may call
/// them at once.
///
/// \code
/// const Chain chain = constructPeptideChain(u"A"_s, u"A"_s, u"GASTK"_s, factory.data());
/// const MoleculeEntity peptide =
///     constructProteinFromChains(u"example"_s, {chain}, {}, {}, nullptr);
/// peptide.sequence(); // "H-GASTK-OH"
/// \endcode

namespace chem {

class ChemicalFactory;

/// \addtogroup molecules
/// @{

/// Reads a peptide text into a chain of type Peptide: N-terminus, one residue for each character,
/// C-terminus. Characters are read as by ChemicalFactory::parseAminoAcidSequence().
ZEL_CHEMICAL_MODEL_EXPORT Chain constructPeptideChain(const QString& name, const QString& code,
                                                      const QString& sequence,
                                                      const ChemicalFactory* factory);

/// Reads an oligonucleotide text into a chain of type OligoNucleotide: 5' end, then ribose,
/// nucleobase and phosphate of each nucleotide, then 3' end. A missing phosphate takes up a place
/// of no mass. Text outside the grammar gives a chain of the two default ends alone.
ZEL_CHEMICAL_MODEL_EXPORT Chain constructOligoNucleotideChain(const QString& name,
                                                              const QString& code,
                                                              const QString& sequence,
                                                              const ChemicalFactory* factory);

/// Makes a molecule of type OligoNucleotide from the one chain of a text, both with this name and
/// code.
ZEL_CHEMICAL_MODEL_EXPORT MoleculeEntity constructOligoNucleotide(const QString& name,
                                                                  const QString& code,
                                                                  const QString& sequence,
                                                                  const ChemicalFactory* factory);

/// Makes a molecule of type Protein without a code. The factory is not used and may be null.
ZEL_CHEMICAL_MODEL_EXPORT MoleculeEntity constructProteinFromChains(
    const QString& name, const QList<Chain>& chains, const QList<Modification>& modifications,
    const QList<Link>& links, const ChemicalFactory* factory);

/// Makes a molecule whose totals are the sums of its residues, then its links, then its
/// modifications, in that order, so that equal parts give equal bits. A part without a stored mass
/// or formula counts with the one that MoleculeEntity rebuilds. A link or modification counts once,
/// wherever its positions point. Empty lists give masses of 0.0 and an empty formula. Its history
/// is empty. Linear in the parts.
ZEL_CHEMICAL_MODEL_EXPORT MoleculeEntity constructStructuredMolecule(
    const QString& name, const QString& code, const QList<Chain>& chains,
    const QList<Modification>& modifications, const QList<Link>& links, MoleculeType type);

/// @}

} // namespace chem
