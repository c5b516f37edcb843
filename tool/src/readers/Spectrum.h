#pragma once

#include "support/Complaints.h"

#include <QString>

#include <vector>

namespace tool {

/// Peaks by ascending m/z.
struct Peaks
{
    std::vector<double> mz;
    std::vector<double> intensities; ///< Of the same peaks; finite and not below 0.

    /// Puts them in order; peaks of equal m/z stay as they are.
    void sort();
};

/// A fragment spectrum.
struct Spectrum
{
    QString title;            ///< TITLE as nameOf() has it, else `index=N`, from 1.
    double precursor = 0.0;   ///< m/z.
    std::vector<int> charges; ///< Those that the file states, with their sign; may be none.
    Peaks peaks;
    Place place; ///< Where it starts.
};

} // namespace tool
