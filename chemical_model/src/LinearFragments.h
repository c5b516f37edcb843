#pragma once

#include "FragmentType.h"
#include <zel_chemical_model/ChemicalModelExport.h>

#include <QList>
#include <QString>

namespace chem {

class MoleculeComplex;

/// \addtogroup chains
/// @{

/// A fragment ion as two masses in daltons and the letters of its monomers.
///
/// The masses are those of the neutral composition: no proton is added.
///
/// \code
/// QList<SimpleFragment> fragments;
/// generateLinearFragments(*peptide, fragments);
/// const SimpleFragment b1 = fragments.first(); // of DRVYIHPF: 115.02694 Da, letters "D"
/// \endcode
struct ZEL_CHEMICAL_MODEL_EXPORT SimpleFragment
{
    double averageMass = 0.0; ///< Average mass in daltons.
    double monoMass = 0.0;    ///< Monoisotopic mass in daltons.

    /// The first character of each monomer's code, in chain order. A monomer without a code gives
    /// U+0000; an oligonucleotide residue gives its ribose letter where one was written.
    QString sequence;

    FragmentType type = FragmentType::Unknown; ///< The ion type.
    int position = 0; ///< Index of the first monomer in the whole sequence, counted from 0.
};

/// Writes every fragment ion of `complex` to `fragments`, which is emptied first: the light form
/// for many fragments, with masses and letters only.
///
/// At each step the ions of one position come in the order of its sites, left and right ions in
/// turn. Right ions take the sites of the mirrored step, which matters for oligonucleotides alone:
/// the first `w` and `x` see the first nucleotide, which has no phosphate before it. A complex
/// without monomers gives no fragments. The cost is linear in the fragments plus their letters. May
/// run on one complex from any number of threads.
ZEL_CHEMICAL_MODEL_EXPORT void generateLinearFragments(const MoleculeComplex& complex,
                                                       QList<SimpleFragment>& fragments);

/// @}

} // namespace chem

Q_DECLARE_TYPEINFO(chem::SimpleFragment, Q_RELOCATABLE_TYPE);
