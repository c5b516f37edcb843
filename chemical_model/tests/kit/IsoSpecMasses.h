#pragma once

#include <QList>

#include <IsoSpec++/isoSpec++.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

/// An element as IsoSpec++ takes it.
struct IsoSpecElement
{
    QList<double> masses;
    QList<double> abundances;
    int count = 0;
};

struct MassPair
{
    double mono = 0.0;
    double average = 0.0;
};

/// An IsoSpec++ molecule of these elements, in their order.
inline IsoSpec::Iso isoOf(const QList<IsoSpecElement>& elements)
{
    QList<int> isotopeNumbers;
    QList<int> counts;
    QList<double> masses;
    QList<double> abundances;
    for (const IsoSpecElement& element : elements) {
        isotopeNumbers.append(static_cast<int>(element.masses.size()));
        counts.append(element.count);
        masses += element.masses;
        abundances += element.abundances;
    }
    return IsoSpec::Iso(static_cast<int>(counts.size()), isotopeNumbers.constData(),
                        counts.constData(), masses.constData(), abundances.constData());
}

/// The masses that IsoSpec++ gives for the whole molecule at once.
inline MassPair massesByIso(const QList<IsoSpecElement>& elements)
{
    const IsoSpec::Iso iso = isoOf(elements);
    return {iso.getMonoisotopicPeakMass(), iso.getTheoreticalAverageMass()};
}

/// The same from a generator of configurations, which is far slower for large counts.
inline MassPair massesByGenerator(const QList<IsoSpecElement>& elements)
{
    const IsoSpec::IsoThresholdGenerator generator(isoOf(elements), 1e-10, true, 1000, 1000, true);
    return {generator.getMonoisotopicPeakMass(), generator.getTheoreticalAverageMass()};
}

/// Whether this build of IsoSpec++ adds products without rounding them first. It is shown by sums
/// that rounding makes 0.0: of three atoms of a mass whose threefold has too many digits and of one
/// that weighs the rounded threefold less, and of two isotopes of one atom in the same way.
inline bool isoSpecFusesProducts()
{
    const double mass = 1.0 + std::numeric_limits<double>::epsilon();
    const MassPair atoms = massesByIso({{{-(3.0 * mass)}, {1.0}, 1}, {{mass}, {1.0}, 3}});
    const double third = std::exp(std::log(0.3));
    const MassPair isotopes = massesByIso({{{-(third * mass), mass}, {1.0, 0.3}, 1}});
    return atoms.mono != 0.0 || atoms.average != 0.0 || isotopes.average != 0.0;
}

/// Whether `own` is the mass that IsoSpec++ gives: to the last bit where its build rounds each
/// product, to the last few bits where it does not.
inline ::testing::AssertionResult isMassOfIsoSpec(double own, double isoSpecs)
{
    static const bool isFused = isoSpecFusesProducts();
    constexpr double lastBits = 8 * std::numeric_limits<double>::epsilon();
    const double tolerance = isFused ? lastBits * std::max(1.0, std::abs(isoSpecs)) : 0.0;
    if (std::abs(own - isoSpecs) <= tolerance)
        return ::testing::AssertionSuccess();
    return ::testing::AssertionFailure()
           << own << " differs from " << isoSpecs << " by " << own - isoSpecs;
}
