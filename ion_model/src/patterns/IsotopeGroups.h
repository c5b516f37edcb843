#pragma once

#include "IsotopePattern.h"

#include <optional>
#include <span>

namespace ions {

/// Why the atoms of these groups have no pattern, if that is so; IsotopePattern::fill() tells the
/// reasons.
std::optional<Error> refusalOf(std::span<const IsotopeGroup> groups);

/// Why there is no pattern to this coverage, if that is so.
std::optional<Error> refusalOf(double coverage);

/// What the abundances add up to: 1, or nearly so.
double sumOfAbundances(std::span<const IsotopeShare> isotopes);

/// Calls `call` with each term that has atoms and the isotopes of its atom.
template <typename Call>
void forEachTerm(std::span<const IsotopeGroup> groups, const Call& call)
{
    for (const IsotopeGroup& group : groups) {
        for (const Composition::Term& term : group.composition.terms())
            call(group.atoms, term, group.atoms.isotopes(term.atom));
    }
}

} // namespace ions
