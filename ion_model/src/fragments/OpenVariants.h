#pragma once

#include "Backbone.h"
#include "fragments/UnitRange.h"

#include <optional>
#include <vector>

namespace ions {

/// One way in which ions hold the open groups of their chain, and the numbers that can hold them
/// so.
struct OpenVariant
{
    double mass = 0.0;     ///< Of the groups that are held, monoisotopic, in daltons.
    NumberSpan numbers;    ///< Which ions.
    std::vector<int> held; ///< How many groups of each class of equal mass.
};

/// Open groups of one mass.
struct OpenClass
{
    std::vector<const OpenGroup*> groups;
    int limit = 0;                ///< How many of them may share a unit; 0 for any number.
    std::vector<qsizetype> units; ///< Where they sit if there is a limit, ascending.
};

/// The open groups of a chain, those of equal mass together, in the order of their first. Those
/// that weigh nothing make no difference and are left out.
std::vector<OpenClass> openClasses(const BackboneChain& chain);

/// The ways in which the ions of a range with these numbers hold open groups, fewest groups first.
/// No ion has two of one mass. Nothing where one ion would have more than 16 variants, or all of
/// them more than 256.
std::optional<std::vector<OpenVariant>> openVariants(const BackboneChain& chain,
                                                     const UnitRange& range, NumberSpan numbers);

/// How many groups of a class the ion of a number holds wherever they sit.
int heldForCertain(const OpenClass& alike, const UnitRange& range, qsizetype number);

/// How many of the groups held in a variant may show a loss.
int holdersAmongOpen(const BackboneChain& chain, const OpenVariant& variant,
                     const NeutralLoss& loss);

} // namespace ions
