#include "PeakMatch.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <numbers>

namespace ions {

namespace {

/// The first place from `first` to `last` whose peak is not in front of the place looked for, or
/// `last`. Written out since the peaks may be in any order, which the standard's search may not
/// meet.
template <typename IsInFront>
std::size_t firstBehind(std::span<const double> peaks, std::size_t first, std::size_t last,
                        const IsInFront& isInFront)
{
    while (first < last) {
        const std::size_t middle = first + (last - first) / 2;
        if (isInFront(peaks[middle]))
            first = middle + 1;
        else
            last = middle;
    }
    return first;
}

/// The same from `first` on, in steps that double: a place that is near takes few of them.
template <typename IsInFront>
std::size_t firstBehind(std::span<const double> peaks, std::size_t first,
                        const IsInFront& isInFront)
{
    std::size_t step = 1;
    while (step <= peaks.size() - first && isInFront(peaks[first + step - 1])) {
        first += step;
        step *= 2;
    }
    return firstBehind(peaks, first, std::min(first + step - 1, peaks.size()), isInFront);
}

/// No peaks, in front of those that are not below the ion: of one without an interval.
PeakRange emptyRange(std::span<const double> peaks, double ion)
{
    const std::size_t place =
        firstBehind(peaks, 0, peaks.size(), [ion](double peak) { return peak < ion; });
    return {place, place};
}

/// Finds ranges one after the other, each from where the one before it was found.
class RangeFinder
{
public:
    RangeFinder(std::span<const double> peaks, const Tolerance& tolerance)
        : m_peaks(peaks)
        , m_tolerance(tolerance)
    {
    }

    PeakRange find(double ion)
    {
        const double lowest = m_tolerance.lowest(ion);
        const double highest = m_tolerance.highest(ion);
        if (!(lowest <= highest))
            return emptyRange(m_peaks, ion);
        const std::size_t from = lowest >= m_lowest ? m_first : 0;
        m_lowest = lowest;
        m_first = firstBehind(m_peaks, from, [lowest](double peak) { return peak < lowest; });
        return {m_first, endOf(m_peaks, m_first, highest)};
    }

    static std::size_t endOf(std::span<const double> peaks, std::size_t first, double highest)
    {
        return firstBehind(peaks, first, [highest](double peak) { return peak <= highest; });
    }

private:
    std::span<const double> m_peaks;
    Tolerance m_tolerance;
    std::size_t m_first = 0;
    double m_lowest = -std::numeric_limits<double>::infinity();
};

std::size_t nearestOf(std::span<const double> peaks, const PeakRange& range, double ion)
{
    std::size_t nearest = range.first;
    for (std::size_t peak = range.first + 1; peak < range.last; ++peak) {
        if (std::abs(peaks[peak] - ion) < std::abs(peaks[nearest] - ion))
            nearest = peak;
    }
    return nearest;
}

std::size_t mostIntenseOf(std::span<const double> intensities, const PeakRange& range)
{
    const auto intensityOf = [intensities](std::size_t peak) {
        return peak < intensities.size() ? intensities[peak] : 0.0;
    };
    std::size_t largest = range.first;
    for (std::size_t peak = range.first + 1; peak < range.last; ++peak) {
        const double intensity = intensityOf(peak);
        const double sofar = intensityOf(largest);
        if (intensity > sofar || (std::isnan(sofar) && !std::isnan(intensity)))
            largest = peak;
    }
    return largest;
}

/// ln(n!). The standard's function writes a variable that all threads share.
double lnFactorial(std::size_t count)
{
    constexpr std::size_t largestProduct = 170; // 171! is beyond a double.
    if (count <= largestProduct) {
        double product = 1.0;
        for (std::size_t factor = 2; factor <= count; ++factor)
            product *= double(factor);
        return std::log(product);
    }
    // Stirling's series; the first term left out is below 10^-17 here.
    const auto n = double(count);
    const double series = (1.0 / 12.0 - (1.0 / 360.0 - 1.0 / (1260.0 * n * n)) / (n * n)) / n;
    return n * std::log(n) - n + 0.5 * std::log(2.0 * std::numbers::pi * n) + series;
}

double lnSum(double intensity)
{
    return intensity > 0.0 ? std::log1p(intensity) : 0.0;
}

} // namespace

PeakRange peaksAround(std::span<const double> peaks, double ion, const Tolerance& tolerance)
{
    const double lowest = tolerance.lowest(ion);
    const double highest = tolerance.highest(ion);
    if (!(lowest <= highest))
        return emptyRange(peaks, ion);
    const std::size_t first =
        firstBehind(peaks, 0, peaks.size(), [lowest](double peak) { return peak < lowest; });
    return {first, RangeFinder::endOf(peaks, first, highest)};
}

void peaksAround(std::span<const double> peaks, std::span<const double> ions,
                 const Tolerance& tolerance, std::vector<PeakRange>* ranges)
{
    ranges->resize(ions.size());
    RangeFinder finder(peaks, tolerance);
    std::transform(ions.begin(), ions.end(), ranges->begin(),
                   [&finder](double ion) { return finder.find(ion); });
}

void matchPeaks(std::span<const double> peaks, std::span<const double> intensities,
                std::span<const double> ions, const Tolerance& tolerance, PeakChoice choice,
                PeakMatches* matches)
{
    matches->ions.clear();
    matches->peaks.clear();
    RangeFinder finder(peaks, tolerance);
    for (std::size_t ion = 0; ion < ions.size(); ++ion) {
        PeakRange range = finder.find(ions[ion]);
        if (range.isEmpty())
            continue;
        if (choice != PeakChoice::All) {
            range.first = choice == PeakChoice::Nearest ? nearestOf(peaks, range, ions[ion])
                                                        : mostIntenseOf(intensities, range);
            range.last = range.first + 1;
        }
        for (std::size_t peak = range.first; peak < range.last; ++peak) {
            matches->ions.push_back(ion);
            matches->peaks.push_back(peak);
        }
    }
}

double matchScore(const SeriesMatch& b, const SeriesMatch& y)
{
    return lnFactorial(b.count) + lnFactorial(y.count) + lnSum(b.intensity) + lnSum(y.intensity);
}

} // namespace ions
