#include "IsotopePattern.h"
#include "patterns/IsotopeGroups.h"

#include <IsoSpec++/isoSpec++.h>

#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;

namespace ions {

namespace {

/// IsoSpec++ keeps the logarithms of factorials up to this number.
constexpr int largestCount = 10485758;

/// How far, in natural logarithms, the first layer reaches below the most abundant isotopologue;
/// how much farther each next one does, as a part of what was reached; and the most that a layer
/// spans. Isotopologues of many heavy atoms lie so densely that thicker layers would not fit in
/// memory.
constexpr double firstLayer = 1e-6;
constexpr double layerGrowth = 0.15;
constexpr double thickestLayer = 2.0;

/// Atoms with the same isotopes in the same shares, of whichever groups: no isotopologue tells
/// which group an isotope belongs to.
struct AtomKind
{
    std::span<const IsotopeShare> isotopes;
    qint64 count = 0;
};

AtomKind& kindOf(std::span<const IsotopeShare> isotopes, std::vector<AtomKind>* kinds)
{
    const auto isSame = [isotopes](const AtomKind& kind) {
        return std::equal(kind.isotopes.begin(), kind.isotopes.end(), isotopes.begin(),
                          isotopes.end());
    };
    const auto kind = std::find_if(kinds->begin(), kinds->end(), isSame);
    return kind != kinds->end() ? *kind : kinds->emplace_back(AtomKind{isotopes, 0});
}

Parsed<std::vector<AtomKind>> kindsOf(std::span<const IsotopeGroup> groups)
{
    std::optional<Error> refusal = refusalOf(groups);
    std::vector<AtomKind> kinds;
    qsizetype index = 0;
    forEachTerm(groups, [&](const AtomMasses&, const Composition::Term& term,
                            std::span<const IsotopeShare> isotopes) {
        AtomKind& kind = kindOf(isotopes, &kinds);
        kind.count += term.count;
        if (!refusal && kind.count > largestCount)
            refusal = Error{u"expected at most 10485758 atoms of a kind"_s, index};
        ++index;
    });
    if (refusal)
        return *refusal;
    return kinds;
}

/// The atoms as the arrays that IsoSpec++ takes. Those of one isotope have nothing to distribute:
/// they are a mass and a factor, since IsoSpec++ cannot do without any atoms.
struct IsoArrays
{
    std::vector<int> isotopeNumbers; ///< For each kind of atom the number of its isotopes.
    std::vector<int> atomCounts;
    std::vector<double> masses;     ///< Of all isotopes, kind after kind.
    std::vector<double> abundances; ///< In step with the masses.
    double fixedMass = 0.0;
    double fixedShare = 1.0;
    double total = 1.0; ///< What the shares of all isotopologues add up to.

    explicit IsoArrays(const std::vector<AtomKind>& kinds)
    {
        for (const AtomKind& kind : kinds) {
            const auto count = int(kind.count);
            total *= std::pow(sumOfAbundances(kind.isotopes), count);
            if (kind.isotopes.size() == 1)
                addFixed(kind.isotopes.front(), count);
            else
                add(kind.isotopes, count);
        }
    }

    bool isEmpty() const { return atomCounts.empty(); }

    IsoSpec::Iso iso() const
    {
        return {int(atomCounts.size()), isotopeNumbers.data(), atomCounts.data(), masses.data(),
                abundances.data()};
    }

private:
    void addFixed(const IsotopeShare& isotope, int count)
    {
        fixedMass += count * isotope.mass;
        fixedShare *= std::pow(isotope.abundance, count);
    }

    void add(std::span<const IsotopeShare> isotopes, int count)
    {
        isotopeNumbers.push_back(int(isotopes.size()));
        atomCounts.push_back(count);
        for (const IsotopeShare& isotope : isotopes) {
            masses.push_back(isotope.mass);
            abundances.push_back(isotope.abundance);
        }
    }
};

struct Isotopologue
{
    double mass = 0.0;
    double share = 0.0;
};

bool isMoreAbundant(const Isotopologue& left, const Isotopologue& right)
{
    return left.share != right.share ? left.share > right.share : left.mass < right.mass;
}

/// Whole layers of isotopologues, each less abundant than those before it, until the shares add up
/// to `target` or there are more than `limit`.
std::vector<Isotopologue> layers(const IsoArrays& arrays, double target, qsizetype limit)
{
    if (arrays.isEmpty())
        return {{arrays.fixedMass, arrays.fixedShare}};
    std::vector<Isotopologue> found;
    double sum = 0.0;
    double depth = firstLayer;
    const auto nextLayer = [&depth](IsoSpec::IsoLayeredGenerator* generator) {
        const double thickness = std::min(thickestLayer, layerGrowth * depth);
        depth += thickness;
        return generator->nextLayer(-thickness);
    };
    IsoSpec::IsoLayeredGenerator generator(arrays.iso());
    do {
        while (generator.advanceToNextConfigurationWithinLayer()) {
            const double share = arrays.fixedShare * generator.prob();
            found.push_back({arrays.fixedMass + generator.mass(), share});
            sum += share;
        }
    } while (sum < target && qsizetype(found.size()) < limit && nextLayer(&generator));
    return found;
}

FineStructure mostAbundant(std::vector<Isotopologue> found, double target, qsizetype limit)
{
    std::sort(found.begin(), found.end(), isMoreAbundant);
    double sum = 0.0;
    std::size_t kept = 0;
    while (kept < found.size() && qsizetype(kept) < limit && sum < target)
        sum += found[kept++].share;
    found.resize(kept);
    std::sort(found.begin(), found.end(), [](const Isotopologue& left, const Isotopologue& right) {
        return left.mass < right.mass;
    });
    FineStructure structure;
    structure.isComplete = sum >= target;
    for (const Isotopologue& isotopologue : found) {
        structure.masses.push_back(isotopologue.mass);
        structure.shares.push_back(isotopologue.share);
    }
    return structure;
}

} // namespace

Parsed<FineStructure> fineStructure(std::span<const IsotopeGroup> groups, double coverage,
                                    qsizetype limit)
{
    if (const auto refusal = refusalOf(coverage))
        return *refusal;
    const Parsed<std::vector<AtomKind>> kinds = kindsOf(groups);
    if (!kinds)
        return kinds.error();
    if (limit < 1)
        return Error{u"expected a limit of at least 1"_s};
    const IsoArrays arrays(*kinds);
    const double target = coverage * arrays.total;
    return mostAbundant(layers(arrays, target, limit), target, limit);
}

Parsed<double> mostAbundantMass(std::span<const IsotopeGroup> groups)
{
    const Parsed<std::vector<AtomKind>> kinds = kindsOf(groups);
    if (!kinds)
        return kinds.error();
    const IsoArrays arrays(*kinds);
    return arrays.isEmpty() ? arrays.fixedMass : arrays.fixedMass + arrays.iso().getModeMass();
}

} // namespace ions
