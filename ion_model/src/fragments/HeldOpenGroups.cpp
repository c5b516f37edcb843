#include "fragments/HeldOpenGroups.h"

#include "fragments/CutSegments.h"
#include "fragments/UnitRange.h"

#include <iterator>
#include <utility>

namespace ions {

namespace {

/// The units of ions of one kind, their numbers, and which of these an ion has.
struct Extent
{
    UnitRange range;
    NumberSpan numbers;
    qsizetype number;
};

Extent extentOf(const Backbone& backbone, const IonRun& run, qsizetype number)
{
    const qsizetype size = std::ssize(backbone.chains()[run.chain].units);
    const qsizetype start = qsizetype(run.start) - 1;
    switch (run.series) {
    case Series::Immonium:
        return {UnitRange::middle(number - 1, size), {1, 1}, 1};
    case Series::Internal:
        return {UnitRange::middle(start, size),
                {2, internalEnd(backbone, run.chain, start) - start},
                number - start};
    default:
        return {isLeftSeries(run.series) ? UnitRange::left(size) : UnitRange::right(size),
                {1, size - 1},
                number};
    }
}

} // namespace

std::optional<std::vector<HeldClass>> heldOpenGroups(const Backbone& backbone, const IonRun& run,
                                                     qsizetype number)
{
    const BackboneChain& chain = backbone.chains()[run.chain];
    if (chain.open.empty())
        return std::vector<HeldClass>();
    const Extent extent = extentOf(backbone, run, number);
    const auto variants = openVariants(chain, extent.range, extent.numbers);
    if (!variants || run.variant >= variants->size())
        return {};
    const std::vector<int>& held = (*variants)[run.variant].held;
    std::vector<HeldClass> classes;
    for (OpenClass& alike : openClasses(chain)) {
        const int certain = heldForCertain(alike, extent.range, extent.number);
        classes.push_back({std::move(alike), held[classes.size()], certain});
    }
    return classes;
}

} // namespace ions
