#pragma once

#include "LetterTable.h"
#include "LinearComplex.h"

#include <vector>

namespace chem {

/// What a peptide is laid out from.
struct PeptideParts
{
    LetterTable residues;                 ///< The amino acids by letter.
    std::vector<FragmentationSite> sites; ///< The ten ways to break, the same at every position.
};

} // namespace chem
