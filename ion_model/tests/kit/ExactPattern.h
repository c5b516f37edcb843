#pragma once

#include "IsotopePattern.h"

#include <cmath>
#include <complex>
#include <numbers>
#include <span>
#include <vector>

/// \file
/// Isotope patterns in long double by two ways that share nothing with the library's.

namespace ions {

struct ExactBin
{
    long double share = 0.0L;
    long double centroid = 0.0L;
};

/// Bins by Fourier sums: the distribution of n atoms has the n-th power of the characteristic
/// function of one. Nothing is convolved or cut; the sums run over so many angles that a bin and
/// those that fall on top of it lie 24 standard deviations apart.
class FourierPattern
{
public:
    explicit FourierPattern(std::span<const IsotopeGroup> groups)
    {
        const auto angles = std::size_t(24.0 * std::sqrt(variance(groups))) + 128;
        for (std::size_t i = 0; i < angles; ++i) {
            const long double angle = 2.0L * std::numbers::pi_v<long double> *
                                      static_cast<long double>(i) /
                                      static_cast<long double>(angles);
            m_values.push_back(valueAt(angle, groups));
            m_units.push_back(std::polar(1.0L, -angle));
        }
        for (const IsotopeGroup& group : groups) {
            for (const Composition::Term& term : group.composition.terms())
                m_lightestMass +=
                    static_cast<long double>(group.atoms.isotopes(term.atom).front().mass) *
                    term.count;
        }
    }

    ExactBin bin(qint64 neutrons) const
    {
        const std::size_t angles = m_values.size();
        const auto step = std::size_t(neutrons) % angles;
        long double share = 0.0L;
        long double moment = 0.0L;
        for (std::size_t i = 0, unit = 0; i < angles; ++i, unit = (unit + step) % angles) {
            share += (m_values[i].share * m_units[unit]).real();
            moment += (m_values[i].moment * m_units[unit]).real();
        }
        return {share / static_cast<long double>(angles),
                m_lightestMass + static_cast<long double>(neutrons) + moment / share};
    }

private:
    using Complex = std::complex<long double>;

    /// A share and the same multiplied by the mean excess over whole daltons.
    struct Value
    {
        Complex share = 1.0L;
        Complex moment = 0.0L;
    };

    static long neutronsOf(const IsotopeShare& isotope, const IsotopeShare& lightest)
    {
        return std::lround(isotope.mass) - std::lround(lightest.mass);
    }

    static double variance(std::span<const IsotopeGroup> groups)
    {
        double sum = 0.0;
        for (const IsotopeGroup& group : groups) {
            for (const Composition::Term& term : group.composition.terms()) {
                const auto isotopes = group.atoms.isotopes(term.atom);
                double mean = 0.0;
                double square = 0.0;
                for (const IsotopeShare& isotope : isotopes) {
                    const auto neutrons = double(neutronsOf(isotope, isotopes.front()));
                    mean += isotope.abundance * neutrons;
                    square += isotope.abundance * neutrons * neutrons;
                }
                sum += term.count * (square - mean * mean);
            }
        }
        return sum;
    }

    static Complex powerOf(Complex base, int exponent)
    {
        Complex power = 1.0L;
        for (; exponent > 0; exponent /= 2, base *= base) {
            if (exponent % 2 == 1)
                power *= base;
        }
        return power;
    }

    static Value valueAt(long double angle, std::span<const IsotopeGroup> groups)
    {
        Value product;
        for (const IsotopeGroup& group : groups) {
            for (const Composition::Term& term : group.composition.terms()) {
                const Value value = valueAt(angle, group.atoms.isotopes(term.atom), term.count);
                product.moment = product.moment * value.share + product.share * value.moment;
                product.share *= value.share;
            }
        }
        return product;
    }

    static Value valueAt(long double angle, std::span<const IsotopeShare> isotopes, int count)
    {
        Complex share = 0.0L;
        Complex moment = 0.0L;
        for (const IsotopeShare& isotope : isotopes) {
            const auto neutrons = static_cast<long double>(neutronsOf(isotope, isotopes.front()));
            const Complex part = std::polar<long double>(isotope.abundance, angle * neutrons);
            const long double mass = isotope.mass;
            share += part;
            moment += part * (mass - isotopes.front().mass - neutrons);
        }
        const Complex others = powerOf(share, count - 1);
        return {others * share, static_cast<long double>(count) * others * moment};
    }

    std::vector<Value> m_values;
    std::vector<Complex> m_units;
    long double m_lightestMass = 0.0L;
};

/// All bins of a molecule, one atom after the other, nothing left out.
inline std::vector<ExactBin> patternAtomByAtom(std::span<const IsotopeGroup> groups)
{
    std::vector<ExactBin> bins = {{1.0L, 0.0L}}; // centroids hold share times mass until the end
    for (const IsotopeGroup& group : groups) {
        for (const Composition::Term& term : group.composition.terms()) {
            const auto isotopes = group.atoms.isotopes(term.atom);
            const long lightest = std::lround(isotopes.front().mass);
            for (int atom = 0; atom < term.count; ++atom) {
                std::vector<ExactBin> more(
                    bins.size() + std::size_t(std::lround(isotopes.back().mass) - lightest));
                for (std::size_t i = 0; i < bins.size(); ++i) {
                    for (const IsotopeShare& isotope : isotopes) {
                        ExactBin& bin = more[i + std::size_t(std::lround(isotope.mass) - lightest)];
                        const long double abundance = isotope.abundance;
                        bin.share += abundance * bins[i].share;
                        bin.centroid +=
                            abundance * (bins[i].centroid + bins[i].share * isotope.mass);
                    }
                }
                bins = std::move(more);
            }
        }
    }
    for (ExactBin& bin : bins)
        bin.centroid /= bin.share;
    return bins;
}

} // namespace ions
