#include "patterns/IsotopeGroups.h"

#include "patterns/LargestMass.h"

#include <cmath>

using namespace Qt::StringLiterals;

namespace ions {

namespace {

constexpr double abundanceTolerance = 1e-6;

QString nameOf(const Composition::Term& term)
{
    return Composition(term.atom).toString();
}

} // namespace

double sumOfAbundances(std::span<const IsotopeShare> isotopes)
{
    double sum = 0.0;
    for (const IsotopeShare& isotope : isotopes)
        sum += isotope.abundance;
    return sum;
}

std::optional<Error> refusalOf(std::span<const IsotopeGroup> groups)
{
    std::optional<Error> refusal;
    qsizetype index = 0;
    double mass = 0.0;
    forEachTerm(groups, [&](const AtomMasses& atoms, const Composition::Term& term,
                            std::span<const IsotopeShare> isotopes) {
        const auto refuse = [&](const QString& message) {
            if (!refusal)
                refusal = Error{message, index};
        };
        mass += double(term.count) * atoms.of(term.atom).average;
        if (isotopes.empty())
            refuse(u"no isotopes are known for "_s + nameOf(term));
        else if (term.count < 0)
            refuse(u"expected no negative count of "_s + nameOf(term));
        else if (!(std::abs(sumOfAbundances(isotopes) - 1.0) <= abundanceTolerance))
            refuse(u"expected abundances of "_s + nameOf(term) + u" that add up to 1"_s);
        else if (!(mass <= largestMass))
            refuse(u"expected a molecule of at most 100 MDa"_s);
        ++index;
    });
    return refusal;
}

std::optional<Error> refusalOf(double coverage)
{
    if (coverage > 0.0 && coverage <= largestCoverage)
        return {};
    return Error{u"expected a coverage above 0 and at most 0.999999999"_s};
}

} // namespace ions
