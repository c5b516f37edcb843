#pragma once

#include "Backbone.h"
#include "Composition.h"
#include "ResidueTable.h"

#include <optional>

namespace ions {

/// Compositions of parts of a chain that bear nothing: those of the table's entry by their letter,
/// or, for sugars and linkages, by their masses. Nothing where no entry weighs what the part does.
std::optional<Composition> plainUnit(const BackboneChain& chain, qsizetype unit,
                                     const ResidueTable& residues);
std::optional<Composition> plainBase(const BackboneChain& chain, qsizetype unit,
                                     const ResidueTable& residues);
std::optional<Composition> plainLinkage(const BackboneChain& chain, qsizetype unit,
                                        const ResidueTable& residues);

/// The same for what an end bears beyond a hydrogen on the left or a hydroxyl on the right.
std::optional<Composition> plainLeftGroup(const BackboneChain& chain, const ResidueTable& residues);
std::optional<Composition> plainRightGroup(const BackboneChain& chain,
                                           const ResidueTable& residues);

} // namespace ions
