#include "fragments/OpenVariants.h"

#include "fragments/LossTable.h"

#include <algorithm>
#include <cmath>

namespace ions {

namespace {

constexpr int mostVariants = 16;
constexpr std::size_t mostListed = 256; // a run tells its variant in one byte
constexpr double sameMass = 1e-6;

bool isSame(double left, double right)
{
    return std::abs(left - right) < sameMass;
}

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

/// The variant without the numbers of another one: what stands in front of these and behind them.
std::vector<OpenVariant> without(const OpenVariant& variant, NumberSpan numbers)
{
    std::vector<OpenVariant> left;
    for (const NumberSpan span : {NumberSpan{variant.numbers.first, numbers.first - 1},
                                  NumberSpan{numbers.last + 1, variant.numbers.last}}) {
        const NumberSpan rest = span & variant.numbers;
        if (!rest.isEmpty())
            left.push_back({variant.mass, rest, variant.held});
    }
    return left;
}

/// Leaves out what an earlier variant weighs as well: two groups may weigh what a third does.
std::vector<OpenVariant> withoutRepeats(const std::vector<OpenVariant>& variants)
{
    std::vector<OpenVariant> unique;
    for (const OpenVariant& variant : variants) {
        std::vector<OpenVariant> rest = {variant};
        for (std::size_t i = 0; i < unique.size() && !rest.empty(); ++i) {
            if (!isSame(unique[i].mass, variant.mass))
                continue;
            std::vector<OpenVariant> parts;
            for (const OpenVariant& part : rest) {
                const std::vector<OpenVariant> left = without(part, unique[i].numbers);
                parts.insert(parts.end(), left.begin(), left.end());
            }
            rest = std::move(parts);
        }
        unique.insert(unique.end(), rest.begin(), rest.end());
    }
    return unique;
}

} // namespace

std::vector<OpenClass> openClasses(const BackboneChain& chain)
{
    std::vector<OpenClass> classes;
    for (const OpenGroup& open : chain.open) {
        const double mass = open.group.masses.monoisotopic;
        if (isSame(mass, 0.0))
            continue;
        const auto alike = std::find_if(classes.begin(), classes.end(), [&](const OpenClass& c) {
            return isSame(c.front()->group.masses.monoisotopic, mass);
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
    variants = withoutRepeats(variants);
    if (variants.size() > mostListed)
        return {};
    return variants;
}

int holdersAmongOpen(const BackboneChain& chain, const OpenVariant& variant,
                     const NeutralLoss& loss)
{
    int holders = 0;
    const std::vector<OpenClass> classes = openClasses(chain);
    for (std::size_t i = 0; i < variant.held.size(); ++i) {
        const auto losing =
            std::count_if(classes[i].begin(), classes[i].end(),
                          [&](const OpenGroup* open) { return hasLoss(open->group, loss); });
        holders += std::min(variant.held[i], int(losing));
    }
    return holders;
}

} // namespace ions
