#pragma once

#include "LinearComplex.h"
#include "sequences/ChainGroups.h"

#include <vector>

namespace chem {

/// The ten ways in which a peptide breaks behind any of its residues, and what each ion gains and
/// loses. Those of oligonucleotides are OligoSites'.
std::vector<FragmentationSite> peptideSites(const ChainGroups& groups);

} // namespace chem
