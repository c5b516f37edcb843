#pragma once

#include "Tolerance.h"
#include <zel_ion_model/IonModelExport.h>

#include <cstddef>
#include <span>
#include <vector>

/// \file
/// Calculated masses among measured peaks. Peaks are doubles in ascending order, masses or m/z,
/// and so are the calculated values, which are called ions here; matches are places in these
/// arrays, counted from 0.
///
/// \code
/// const std::vector<double> peaks = {175.1190, 262.1510, 262.1530, 375.2350};
/// peaksAround(peaks, 262.1521, ppm(10)); // first 1, last 3
/// \endcode
///
/// A peak matches an ion if Tolerance::accepts() the one for the other: the interval is closed,
/// NaN matches nothing, and an ion that is infinite has no interval. Peaks that are not in
/// ascending order, or hold NaN, crash nothing and no result reaches outside the array, but which
/// of them are found is then left open.
///
/// Every function may be called from any number of threads, each with an output of its own.

namespace ions {

/// \addtogroup ion_peaks
/// @{

/// A run of peaks: from `first` to in front of `last`, which is never below it.
struct PeakRange
{
    std::size_t first = 0; ///< The place of the first peak.
    std::size_t last = 0;  ///< The place behind the last peak.

    /// How many peaks there are.
    constexpr std::size_t size() const { return last - first; }
    /// Tells whether there is none.
    constexpr bool isEmpty() const { return first == last; }

    /// Compares both places.
    friend constexpr bool operator==(const PeakRange&, const PeakRange&) = default;
};

/// All peaks that match one ion. An empty range stands where such peaks would be: behind all finite
/// ones for an ion that is infinite, and at 0 if it is NaN. Takes the logarithm of the number of
/// peaks.
ZEL_ION_MODEL_EXPORT PeakRange peaksAround(std::span<const double> peaks, double ion,
                                           const Tolerance& tolerance);

/// Replaces `ranges` by all peaks that match each ion, one range an ion in the order of the ions.
/// Ions in ascending order take one merge with the peaks; where the order breaks, as between two
/// series, the search starts anew, and the result is right for any order.
ZEL_ION_MODEL_EXPORT void peaksAround(std::span<const double> peaks, std::span<const double> ions,
                                      const Tolerance& tolerance, std::vector<PeakRange>* ranges);

/// Which of several peaks that match an ion is taken.
enum class PeakChoice {
    All,        ///< Each of them.
    Nearest,    ///< The one with the nearest mass; of two the lower one.
    MostIntense ///< The one with the largest intensity; of several the lowest mass.
};

/// Pairs of an ion and a peak, as two arrays of the same length: by the places of the ions, then by
/// those of the peaks.
struct PeakMatches
{
    std::vector<std::size_t> ions;  ///< Places of the ions.
    std::vector<std::size_t> peaks; ///< Places of the peaks.

    /// How many pairs there are.
    std::size_t size() const { return ions.size(); }
};

/// Replaces `matches` by the pairs of ions and peaks. Two ions may have the same peak. An order of
/// ions that ascends, or does so in a few runs, takes one merge each.
///
/// \param peaks the masses of the peaks.
/// \param intensities those of the same peaks, read for MostIntense only; a missing one counts as
///   0, and NaN is less than any other.
/// \param ions the calculated values.
/// \param tolerance how far a peak may lie from an ion.
/// \param choice which of several peaks is taken.
/// \param matches the output, whose memory is used again.
ZEL_ION_MODEL_EXPORT void matchPeaks(std::span<const double> peaks,
                                     std::span<const double> intensities,
                                     std::span<const double> ions, const Tolerance& tolerance,
                                     PeakChoice choice, PeakMatches* matches);

/// What was found of one series of ions.
struct SeriesMatch
{
    std::size_t count = 0;  ///< Ions with a peak.
    double intensity = 0.0; ///< The sum of their peaks, where the base peak is 100.
};

/// How well a spectrum fits a peptide: ln(b!) + ln(y!) + ln(1 + the sum of b intensities) +
/// ln(1 + that of y). Scaling the base peak to 100 is the caller's part. A sum that is NaN or below
/// zero counts as 0. Good to 10^-12 of the score.
ZEL_ION_MODEL_EXPORT double matchScore(const SeriesMatch& b, const SeriesMatch& y);

/// @}

} // namespace ions
