#include "fragments/OpenVariants.h"

#include <algorithm>
#include <cmath>

namespace ions {

namespace {

constexpr int mostVariants = 16;
constexpr std::size_t mostListed = 256; // a run tells its variant in one byte
constexpr double sameMass = 1e-6;

bool canHold(const OpenGroup& open, const UnitRange& range, qsizetype number)
{
    const auto first = std::lower_bound(open.units.begin(), open.units.end(), range.begin(number));
    return first != open.units.end() && *first < range.end(number);
}

bool mustHold(const OpenGroup& open, const UnitRange& range, qsizetype number)
{
    return open.units.front() >= range.begin(number) && open.units.back() < range.end(number);
}

/// The first number of the span whose ion fulfils a condition that all later ones fulfil as well;
/// one behind the last if none does.
template <typename Condition>
qsizetype firstNumber(NumberSpan numbers, const Condition& condition)
{
    while (!numbers.isEmpty()) {
        const qsizetype middle = numbers.first + (numbers.last - numbers.first) / 2;
        if (condition(middle))
            numbers.last = middle - 1;
        else
            numbers.first = middle + 1;
    }
    return numbers.first;
}

/// The numbers whose ions can hold exactly `count` groups of a class.
NumberSpan numbersHolding(const OpenClass& groups, std::size_t count, const UnitRange& range,
                          NumberSpan numbers)
{
    const auto counted = [&](auto holds, qsizetype number) {
        return std::size_t(std::count_if(groups.begin(), groups.end(), [&](const OpenGroup* open) {
            return holds(*open, range, number);
        }));
    };
    const qsizetype first =
        firstNumber(numbers, [&](qsizetype number) { return counted(canHold, number) >= count; });
    const qsizetype tooMany =
        firstNumber(numbers, [&](qsizetype number) { return counted(mustHold, number) > count; });
    return {first, tooMany - 1};
}

/// The most variants that one number has.
int mostOverlaps(const std::vector<OpenVariant>& variants)
{
    std::vector<std::pair<qsizetype, int>> changes;
    for (const OpenVariant& variant : variants) {
        changes.emplace_back(variant.numbers.first, 1);
        changes.emplace_back(variant.numbers.last + 1, -1);
    }
    std::sort(changes.begin(), changes.end());
    int now = 0;
    int most = 0;
    for (const auto& [number, change] : changes)
        most = std::max(most, now += change);
    return most;
}

std::vector<OpenVariant> extended(const std::vector<OpenVariant>& variants, const OpenClass& groups,
                                  const UnitRange& range)
{
    std::vector<OpenVariant> longer;
    for (const OpenVariant& variant : variants) {
        for (std::size_t count = 0; count <= groups.size(); ++count) {
            const NumberSpan numbers = numbersHolding(groups, count, range, variant.numbers);
            if (numbers.isEmpty())
                continue;
            longer.push_back(variant);
            longer.back().numbers = numbers;
            longer.back().held.push_back(int(count));
            longer.back().mass += double(count) * groups.front()->group.masses.monoisotopic;
        }
    }
    return longer;
}

} // namespace

std::vector<OpenClass> openClasses(const BackboneChain& chain)
{
    std::vector<OpenClass> classes;
    for (const OpenGroup& open : chain.open) {
        const auto alike = std::find_if(classes.begin(), classes.end(), [&](const OpenClass& c) {
            return std::abs(c.front()->group.masses.monoisotopic - open.group.masses.monoisotopic) <
                   sameMass;
        });
        if (alike == classes.end())
            classes.push_back({&open});
        else
            alike->push_back(&open);
    }
    return classes;
}

std::optional<std::vector<OpenVariant>> openVariants(const BackboneChain& chain,
                                                     const UnitRange& range, NumberSpan numbers)
{
    std::vector<OpenVariant> variants = {{0.0, numbers, {}}};
    for (const OpenClass& groups : openClasses(chain)) {
        variants = extended(variants, groups, range);
        if (mostOverlaps(variants) > mostVariants || variants.size() > mostListed)
            return {};
    }
    return variants;
}

int holdersAmongOpen(const BackboneChain& chain, const OpenVariant& variant,
                     const NeutralLoss& loss)
{
    int holders = 0;
    const std::vector<OpenClass> classes = openClasses(chain);
    for (std::size_t i = 0; i < variant.held.size(); ++i) {
        const auto& losses = classes[i].front()->group.losses;
        if (std::find(losses.begin(), losses.end(), loss) != losses.end())
            holders += variant.held[i];
    }
    return holders;
}

} // namespace ions
