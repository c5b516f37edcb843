#pragma once

#include <PeakMatch.h>
#include <Tolerance.h>

#include <span>
#include <vector>

namespace tool {

/// A spectrum at one of the charges that it may have.
struct Precursor
{
    double mass = 0.0; ///< Neutral; less the neutrons of an isotope error.
    std::size_t spectrum = 0;
    int charge = 0;
};

/// Precursors by mass, with a bit for each hundredth of a dalton that tells whether one is near:
/// most masses of a database are near none, and end there.
class PrecursorIndex
{
public:
    /// Sorts the precursors.
    PrecursorIndex(std::vector<Precursor> precursors, const ions::Tolerance& tolerance);

    /// Those that a peptide of this mass may be.
    std::span<const Precursor> near(double mass) const
    {
        const auto bin = std::size_t(mass * binsPerDalton);
        if (!(mass > 0.0) || bin >= m_isNear.size() || !m_isNear[bin])
            return {};
        const ions::PeakRange range = ions::peaksAround(m_masses, mass, m_tolerance);
        return std::span(m_precursors).subspan(range.first, range.size());
    }

private:
    static constexpr double binsPerDalton = 100.0;

    void mark(double mass);

    ions::Tolerance m_tolerance;
    std::vector<Precursor> m_precursors;
    std::vector<double> m_masses;
    std::vector<bool> m_isNear;
};

} // namespace tool
