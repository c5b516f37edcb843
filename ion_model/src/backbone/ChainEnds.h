#pragma once

#include "Backbone.h"

namespace ions {

/// What the ends of a chain weigh beyond a hydrogen on the left and a hydroxyl on the right.
struct ChainEnds
{
    Masses left;
    Masses right;
};

/// The groups of both ends; a piece that lacks an end lacks its hydrogen or hydroxyl as well.
inline ChainEnds chainEnds(const BackboneChain& chain, const BreakMasses& breaks)
{
    ChainEnds ends{chain.leftGroup, chain.rightGroup};
    if (!chain.hasLeftEnd)
        ends.left -= breaks.hydrogen;
    if (!chain.hasRightEnd)
        ends.right -= breaks.water - breaks.hydrogen;
    return ends;
}

} // namespace ions
