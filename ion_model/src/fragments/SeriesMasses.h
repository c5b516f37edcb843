#pragma once

#include "Backbone.h"
#include "FragmentIons.h"

namespace ions {

/// Whether ions of a series are of the molecule, not of one of its chains.
bool isOfMolecule(Series series);

/// Which series arise when a chain of this kind breaks.
bool arises(Series series, Polymer polymer);

/// Small groups that an ion has or, with a count below zero, lacks.
struct BreakGroups
{
    int water = 0;
    int carbonMonoxide = 0;
    int ammonia = 0;
    int hydrogen = 0;
};

/// What small groups weigh together: monoisotopic, in daltons.
double massOf(const BreakGroups& groups, const BreakMasses& breaks);

/// The groups that an ion of the series has beside its units, with the linkages between them, and
/// the group of its end, without charge.
BreakGroups seriesGroups(Series series, Polymer polymer);

/// What these groups weigh together.
double seriesMass(Series series, Polymer polymer, const BreakMasses& breaks);

/// Which part of the unit at the break an ion has beside that, or lacks.
enum class PartAtBreak {
    None,
    WithLinkage, ///< The linkage that joined the two sides.
    WithoutBase  ///< Its last base.
};

/// Which part of the unit at the break an ion of the series has or lacks.
PartAtBreak partAtBreak(Series series, Polymer polymer);

} // namespace ions
