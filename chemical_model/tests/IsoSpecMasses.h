#pragma once

#include <QList>

#include <IsoSpec++/isoSpec++.h>

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
