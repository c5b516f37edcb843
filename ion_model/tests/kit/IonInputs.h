#pragma once

#include "FragmentIons.h"
#include "ResidueTable.h"

#include <vector>

/// \file
/// What tests of ions start from.

namespace ions {

/// The standard residues with natural isotopes.
inline const ResidueTable& residues()
{
    static const ResidueTable table;
    return table;
}

/// All series of the ends.
inline const std::vector<Series> peptideSeries = {
    Series::A, Series::ADot, Series::B, Series::C, Series::CDot,
    Series::X, Series::XDot, Series::Y, Series::Z, Series::ZDot};
inline const std::vector<Series> oligoSeries = {Series::A, Series::B,       Series::C,
                                                Series::D, Series::AMinusB, Series::W,
                                                Series::X, Series::Y,       Series::Z};

} // namespace ions
