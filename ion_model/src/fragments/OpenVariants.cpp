#include "fragments/OpenVariants.h"

#include "fragments/LossTable.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <utility>

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

/// How many groups of a class fulfil a condition on the ion of a number.
template <typename Holds>
int counted(const OpenClass& alike, const Holds& holds, const UnitRange& range, qsizetype number)
{
    return int(std::count_if(alike.groups.begin(), alike.groups.end(),
                             [&](const OpenGroup* open) { return holds(*open, range, number); }));
}

/// How many of these units the ion of a number holds.
qsizetype heldUnits(const std::vector<qsizetype>& units, const UnitRange& range, qsizetype number)
{
    const auto upTo = [&units](qsizetype unit) {
        return std::lower_bound(units.begin(), units.end(), unit);
    };
    return upTo(range.end(number)) - upTo(range.begin(number));
}

void unite(const std::vector<qsizetype>& added, std::vector<qsizetype>* units)
{
    std::vector<qsizetype> all;
    std::set_union(units->begin(), units->end(), added.begin(), added.end(),
                   std::back_inserter(all));
    *units = std::move(all);
}

/// What is known of room for groups that may not share a unit with others: enough of their units
/// are on either side of the break. A closer look would have to try which group sits where.
struct NeededRoom
{
    std::vector<qsizetype> units;
    qsizetype inside = 0;  ///< How many of the units the groups need that an ion holds.
    qsizetype outside = 0; ///< How many the others need.
    qsizetype all = 0;     ///< How many they need together.

    void add(const OpenClass& alike, int held)
    {
        if (alike.limit == 0)
            return;
        const auto needed = [&alike](qsizetype groups) {
            return (groups + alike.limit - 1) / alike.limit;
        };
        unite(alike.units, &units);
        inside += needed(held);
        outside += needed(std::ssize(alike.groups) - held);
        all += needed(std::ssize(alike.groups));
    }

    /// The numbers with room; all of them where there are fewer units than the groups need, which
    /// then have to share some.
    NumberSpan numbers(const UnitRange& range, NumberSpan numbers) const
    {
        if (all > std::ssize(units))
            return numbers;
        const qsizetype first = firstNumber(
            numbers, [&](qsizetype number) { return heldUnits(units, range, number) >= inside; });
        const qsizetype tooMany = firstNumber(numbers, [&](qsizetype number) {
            return std::ssize(units) - heldUnits(units, range, number) < outside;
        });
        return {first, tooMany - 1};
    }
};

/// The numbers whose ions can hold exactly `count` groups of a class.
NumberSpan numbersHolding(const OpenClass& alike, int count, const UnitRange& range,
                          NumberSpan numbers)
{
    const qsizetype first = firstNumber(
        numbers, [&](qsizetype number) { return counted(alike, canHold, range, number) >= count; });
    const qsizetype tooMany = firstNumber(
        numbers, [&](qsizetype number) { return counted(alike, mustHold, range, number) > count; });
    NeededRoom room;
    room.add(alike, count);
    return NumberSpan{first, tooMany - 1} & room.numbers(range, numbers);
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

std::vector<OpenVariant> extended(const std::vector<OpenVariant>& variants, const OpenClass& alike,
                                  const UnitRange& range)
{
    std::vector<OpenVariant> longer;
    for (const OpenVariant& variant : variants) {
        for (int count = 0; count <= int(alike.groups.size()); ++count) {
            const NumberSpan numbers = numbersHolding(alike, count, range, variant.numbers);
            if (numbers.isEmpty())
                continue;
            longer.push_back(variant);
            longer.back().numbers = numbers;
            longer.back().held.push_back(count);
            longer.back().mass += count * alike.groups.front()->group.masses.monoisotopic;
        }
    }
    return longer;
}

/// The variants for whose groups there is room beside each other.
std::vector<OpenVariant> withRoom(std::vector<OpenVariant> variants,
                                  const std::vector<OpenClass>& classes, const UnitRange& range)
{
    for (OpenVariant& variant : variants) {
        NeededRoom room;
        for (std::size_t i = 0; i < variant.held.size(); ++i)
            room.add(classes[i], variant.held[i]);
        variant.numbers = room.numbers(range, variant.numbers);
    }
    std::erase_if(variants, [](const OpenVariant& variant) { return variant.numbers.isEmpty(); });
    return variants;
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

/// Finds out how many groups of a class may share a unit, if all of them tell and have units
/// enough.
void findLimit(OpenClass* alike)
{
    for (const OpenGroup* open : alike->groups) {
        if (open->limit <= 0) {
            alike->limit = 0;
            alike->units.clear();
            return;
        }
        alike->limit = std::max(alike->limit, open->limit);
        unite(open->units, &alike->units);
    }
    if (std::ssize(alike->groups) > alike->limit * std::ssize(alike->units))
        alike->limit = 0;
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
            return isSame(c.groups.front()->group.masses.monoisotopic, mass);
        });
        if (alike == classes.end())
            classes.push_back({{&open}, 0, {}});
        else
            alike->groups.push_back(&open);
    }
    for (OpenClass& alike : classes)
        findLimit(&alike);
    return classes;
}

std::optional<std::vector<OpenVariant>> openVariants(const BackboneChain& chain,
                                                     const UnitRange& range, NumberSpan numbers)
{
    std::vector<OpenVariant> variants = {{0.0, numbers, {}}};
    const std::vector<OpenClass> classes = openClasses(chain);
    for (const OpenClass& alike : classes) {
        variants = withRoom(extended(variants, alike, range), classes, range);
        if (mostOverlaps(variants) > mostVariants || variants.size() > mostListed)
            return {};
    }
    variants = withoutRepeats(variants);
    if (variants.size() > mostListed)
        return {};
    return variants;
}

int heldForCertain(const OpenClass& alike, const UnitRange& range, qsizetype number)
{
    const int held = counted(alike, mustHold, range, number);
    if (alike.limit == 0)
        return held;
    const qsizetype outside = std::ssize(alike.units) - heldUnits(alike.units, range, number);
    return int(std::max(qsizetype(held), std::ssize(alike.groups) - outside * alike.limit));
}

int holdersAmongOpen(const BackboneChain& chain, const OpenVariant& variant,
                     const NeutralLoss& loss)
{
    int holders = 0;
    const std::vector<OpenClass> classes = openClasses(chain);
    for (std::size_t i = 0; i < variant.held.size(); ++i) {
        const auto losing =
            std::count_if(classes[i].groups.begin(), classes[i].groups.end(),
                          [&](const OpenGroup* open) { return hasLoss(open->group, loss); });
        holders += std::min(variant.held[i], int(losing));
    }
    return holders;
}

} // namespace ions
