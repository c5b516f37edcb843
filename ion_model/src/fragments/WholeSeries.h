#pragma once

#include "Backbone.h"
#include "fragments/IonPlan.h"

#include <vector>

namespace ions {

/// Writes the m/z of whole series of one chain, all kinds behind each other: `sums` are what stands
/// left of each unit, `rightTotal` is what all units with both end groups come to.
void writeWholeSeries(const std::vector<EndKind>& kinds, const BackboneChain& chain,
                      const double* sums, double rightTotal, double* mz);

} // namespace ions
