#pragma once

#include "OpenFactory.h"

#include <QPointF>

#include <gtest/gtest.h>

#include <cmath>
#include <map>

/// \file
/// Isotopic distributions by exact convolution, atom by atom. It shares no algorithm with the
/// enumeration of configurations that the library's envelopes come from.

struct MassBin
{
    double probability = 0.0;
    double massSum = 0.0; ///< Probability times mass.
};

/// By neutrons above the lightest isotopes.
using MassDistribution = std::map<int, MassBin>;

inline MassDistribution convolve(const MassDistribution& a, const MassDistribution& b)
{
    MassDistribution product;
    for (const auto& [i, x] : a) {
        for (const auto& [j, y] : b) {
            MassBin& bin = product[i + j];
            bin.probability += x.probability * y.probability;
            bin.massSum += x.massSum * y.probability + y.massSum * x.probability;
        }
    }
    std::erase_if(product, [](const auto& entry) { return entry.second.probability < 1e-18; });
    return product;
}

inline MassDistribution distributionOfAtoms(const IsoSpecElement& element)
{
    MassDistribution power;
    for (qsizetype i = 0; i < element.masses.size(); ++i) {
        const int neutrons = static_cast<int>(std::lround(element.masses[i] - element.masses[0]));
        power[neutrons] = {element.abundances[i], element.abundances[i] * element.masses[i]};
    }
    MassDistribution result = {{0, {1.0, 0.0}}};
    for (int rest = element.count; rest > 0; rest /= 2) {
        if (rest % 2)
            result = convolve(result, power);
        power = convolve(power, power);
    }
    return result;
}

inline MassDistribution exactDistribution(const chem::ChemicalFormula& formula,
                                          const OpenFactory& factory)
{
    MassDistribution exact = {{0, {1.0, 0.0}}};
    const QMap<QString, double>& counts = formula.elementCountMap();
    for (auto entry = counts.cbegin(); entry != counts.cend(); ++entry)
        exact = convolve(exact, distributionOfAtoms(
                                    factory.element(entry.key(), static_cast<int>(entry.value()))));
    return exact;
}

/// Compares an envelope at charge 1 with the distribution, as far as what it leaves out allows:
/// the larger the molecule, the more of its configurations are rare.
inline void expectEnvelopeOf(MassDistribution exact, const QList<QPointF>& envelope,
                             double mostMissing)
{
    double missing = 1.0;
    for (const QPointF& point : envelope)
        missing -= point.y();
    EXPECT_LT(missing, mostMissing);
    for (qsizetype i = 0; i < envelope.size(); ++i) {
        const MassBin& bin = exact[static_cast<int>(i)];
        EXPECT_LE(envelope[i].y(), bin.probability + 1e-9);
        EXPECT_GE(envelope[i].y(), bin.probability - missing - 1e-9);
        if (i > 0 && bin.probability > 1e-6) {
            const double centroid = bin.massSum / bin.probability - 0.000548579909065;
            // What is left out lies within 0.1 of the centroid and moves it by its share at most.
            EXPECT_NEAR(envelope[i].x(), centroid, 0.1 * missing / bin.probability + 1e-9) << i;
        }
    }
}
