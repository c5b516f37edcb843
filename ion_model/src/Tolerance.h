#pragma once

#include "Parsed.h"
#include <zel_ion_model/IonModelExport.h>

#include <QStringView>

namespace ions {

/// \addtogroup ion_peaks
/// @{

/// How far a measured mass or m/z may lie from the calculated one: parts per million of the
/// calculated value, or daltons. Always a closed interval around the calculated value.
///
/// \code
/// const Tolerance tolerance = ppm(10);
/// tolerance.accepts(1046.5500, 1046.5418);    // true: 7.8 ppm
/// ppmError(1046.5500, 1046.5418);             // (measured - calculated) / calculated * 10^6
/// \endcode
class ZEL_ION_MODEL_EXPORT Tolerance
{
public:
    /// Nothing but the calculated value itself.
    constexpr Tolerance() = default;

    /// Reads "10ppm", "10 ppm", "0.02Da" or "0.02 Da": a number that is finite and not below zero,
    /// with a full stop, then its unit, whose case does not count.
    static Parsed<Tolerance> read(QStringView text);

    /// The half width in daltons around `calculated`; the sign of `calculated` does not count.
    constexpr double around(double calculated) const
    {
        return m_daltons + m_share * (calculated < 0.0 ? -calculated : calculated);
    }

    /// The lowest measured value that is accepted.
    constexpr double lowest(double calculated) const { return calculated - around(calculated); }
    /// The highest measured value that is accepted.
    constexpr double highest(double calculated) const { return calculated + around(calculated); }

    /// Tells whether `measured` lies in the interval around `calculated`. NaN never does.
    constexpr bool accepts(double measured, double calculated) const
    {
        return measured >= lowest(calculated) && measured <= highest(calculated);
    }

    /// Compares widths and units.
    friend constexpr bool operator==(const Tolerance&, const Tolerance&) = default;

    friend constexpr Tolerance ppm(double width);
    friend constexpr Tolerance daltons(double width);

private:
    constexpr Tolerance(double share, double daltons)
        : m_share(share > 0.0 ? share : 0.0)
        , m_daltons(daltons > 0.0 ? daltons : 0.0)
    {
    }

    double m_share = 0.0;
    double m_daltons = 0.0;
};

/// A tolerance in parts per million; a width that is below zero or NaN counts as zero.
constexpr Tolerance ppm(double width)
{
    return {width * 1e-6, 0.0};
}

/// A tolerance in daltons; a width that is below zero or NaN counts as zero.
constexpr Tolerance daltons(double width)
{
    return {0.0, width};
}

/// How far `measured` lies from `calculated`, in parts per million of the calculated value.
constexpr double ppmError(double measured, double calculated)
{
    return (measured - calculated) / calculated * 1e6;
}

/// @}

} // namespace ions
