#pragma once

#include "Backbone.h"
#include "fragments/LossTable.h"
#include "fragments/OpenVariants.h"
#include "fragments/UnitRange.h"

#include <cstddef>
#include <vector>

namespace ions {

/// Which ions of a backbone hold enough of what a set of losses takes away: residues that a rule of
/// the caller names, and groups that lose by themselves.
class LossHolders
{
public:
    LossHolders(const Backbone& backbone, const LossTable& losses);

    /// Those of `numbers` whose ions can show the losses: an ion holds what shorter ones hold, open
    /// groups as the variant says, and the whole of `others`, which hang on it.
    NumberSpan numbers(std::size_t set, const BackboneChain& chain, const UnitRange& range,
                       const OpenVariant& variant, const std::vector<qsizetype>& others,
                       NumberSpan numbers) const;

    /// Whether the whole molecule can show the losses.
    bool wholeShows(std::size_t set) const;

private:
    int inUnits(const LossKind& loss, const BackboneChain& chain, qsizetype begin,
                qsizetype end) const;
    int inChain(const LossKind& loss, const BackboneChain& chain) const;
    int inChains(const LossKind& loss, const std::vector<qsizetype>& chains) const;

    const Backbone& m_backbone;
    const LossTable& m_losses;
};

} // namespace ions
