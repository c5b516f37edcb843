#pragma once

#include "Backbone.h"

#include <vector>

namespace ions {

/// What hangs on one side of a cut beside the units of the chain that is cut.
struct CutSide
{
    double mass = 0.0;             ///< Of other chains and of links, monoisotopic, in daltons.
    std::vector<qsizetype> chains; ///< The other chains.
    std::vector<qsizetype> links;  ///< The links.
};

/// Neighbouring cuts of a chain that part the molecule alike.
struct CutSegment
{
    qsizetype firstCut = 1; ///< How many units stand left of the first cut.
    qsizetype lastCut = 0;  ///< The same for the last.
    CutSide left;
    CutSide right;
};

/// The cuts of a chain that part the molecule in two, from the left. Those that links hold together
/// are left out.
std::vector<CutSegment> cutSegments(const Backbone& backbone, qsizetype chain);

/// Whether a link ends at the unit.
bool isLinked(const Backbone& backbone, qsizetype chain, qsizetype unit);

/// Where the longest internal ion ends that starts at a unit of a chain: before the next unit with
/// a link, or before the last.
qsizetype internalEnd(const Backbone& backbone, qsizetype chain, qsizetype start);

} // namespace ions
