#pragma once

#include "Backbone.h"
#include "FragmentIons.h"
#include "fragments/OpenVariants.h"

#include <optional>
#include <vector>

namespace ions {

/// Open groups of one mass, and how many of them an ion holds.
struct HeldClass
{
    OpenClass alike;
    int held = 0;
    int certain = 0; ///< How many it holds in every variant.
};

/// The open groups that the ion with this number of a run of one chain holds; nothing where the
/// backbone, which has the chain and the ion's units, has not so many variants.
std::optional<std::vector<HeldClass>> heldOpenGroups(const Backbone& backbone, const IonRun& run,
                                                     qsizetype number);

} // namespace ions
