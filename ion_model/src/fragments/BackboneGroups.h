#pragma once

#include "Backbone.h"

namespace ions {

/// Hands each group that fragments may hold to the function: those on known units and open ones.
template <typename Visit>
void visitHeldGroups(const Backbone& backbone, const Visit& visit)
{
    for (const BackboneChain& chain : backbone.chains()) {
        for (const PlacedGroup& placed : chain.groups)
            visit(placed.group);
        for (const OpenGroup& open : chain.open)
            visit(open.group);
    }
}

/// Hands these and the labile groups, which only the whole molecule holds, to the function.
template <typename Visit>
void visitAllGroups(const Backbone& backbone, const Visit& visit)
{
    visitHeldGroups(backbone, visit);
    for (const BackboneChain& chain : backbone.chains()) {
        for (const BackboneGroup& group : chain.labile)
            visit(group);
    }
}

} // namespace ions
