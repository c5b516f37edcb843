#include "isotopes/IsotopeEnvelope.h"

#include "isotopes/ElementMasses.h"
#include "support/TruncateToInt.h"

#include <IsoSpec++/isoSpec++.h>

#include <algorithm>
#include <cstdlib>
#include <limits>
#include <utility>

namespace chem {

namespace {

/// Configurations below this probability are left out.
constexpr double probabilityThreshold = 1e-7;
constexpr qsizetype expectedPoints = 100;
constexpr qsizetype expectedElements = 16;
constexpr qsizetype usualIsotopes = 4; ///< Of an element of biomolecules, at most.
// IsoSpec++'s own first sizes for the tables of each element, which grow as needed.
constexpr int marginalTableSize = 1000;
constexpr int marginalHashSize = 1000;

/// The known elements of a formula as the flat arrays that IsoSpec++ takes.
struct IsoArrays
{
    QList<int> isotopeNumbers;          ///< For each kept element the number of its isotopes.
    QList<int> atomCounts;              ///< For each kept element its count.
    QList<double> isotopeMasses;        ///< The masses of all isotopes, element after element.
    QList<double> isotopeProbabilities; ///< The abundances, in step with the masses.
};

IsoArrays isoArrays(const ChemicalFormula& formula, const IsotopeTable& isotopes)
{
    QList<QString> elements;
    QList<int> counts;
    elements.reserve(expectedElements);
    counts.reserve(expectedElements);
    formula.positiveElementCounts(&elements, &counts);

    IsoArrays arrays;
    arrays.isotopeNumbers.reserve(elements.size());
    arrays.atomCounts.reserve(elements.size());
    arrays.isotopeMasses.reserve(elements.size() * usualIsotopes);
    arrays.isotopeProbabilities.reserve(elements.size() * usualIsotopes);
    for (qsizetype i = 0; i < elements.size(); ++i) {
        const auto element = isotopes.elements().constFind(elements[i]);
        if (element == isotopes.elements().cend())
            continue;
        arrays.isotopeNumbers.append(static_cast<int>(element->masses.size()));
        arrays.atomCounts.append(counts[i]);
        arrays.isotopeMasses.append(element->masses);
        arrays.isotopeProbabilities.append(element->abundances);
    }
    return arrays;
}

/// The nearest whole number of daltons.
int nominalMass(double mass)
{
    return truncateToInt(mass + 0.5);
}

/// Sums the configurations into one point for each nominal mass, counted from that of the lightest
/// peak: `x` as probability times mass, `y` as probability.
void sumByNominalMass(IsoSpec::IsoThresholdGenerator* generator, QList<QPointF>* envelope)
{
    const double lightestMass = generator->getLightestPeakMass();
    const double offset = lightestMass - nominalMass(lightestMass);
    const qint64 base = nominalMass(lightestMass - offset);
    envelope->reserve(expectedPoints);
    QPointF* points = envelope->data();
    qint64 size = 0;
    while (generator->advanceToNextConfiguration()) {
        const double mass = generator->mass();
        const double probability = generator->prob();
        const qint64 bin = nominalMass(mass - offset) - base;
        if (bin < 0)
            continue;
        if (bin >= size) {
            size = bin + 1;
            envelope->resize(size);
            points = envelope->data();
        }
        points[bin].rx() += probability * mass;
        points[bin].ry() += probability;
    }
}

/// Turns the sums into m/z. The first point stands for the lightest peak itself.
void convertToMassPerCharge(QList<QPointF>* envelope, double lightestMass, double divisor,
                            double electronMass)
{
    for (QPointF& point : *envelope) {
        if (point.y() != 0.0)
            point.setX(point.x() / (divisor * point.y()) - electronMass);
    }
    if (!envelope->isEmpty())
        envelope->first().setX(lightestMass / divisor - electronMass);
}

} // namespace

int chargeNumber(int charge)
{
    const int lowest = std::numeric_limits<int>::min();
    return charge == lowest ? std::numeric_limits<int>::max() : std::abs(charge);
}

void writeIsotopeEnvelope(const ChemicalFormula& formula, const IsotopeTable& isotopes, int charges,
                          double electronMass, QList<QPointF>* envelope)
{
    const IsoArrays arrays = isoArrays(formula, isotopes);
    if (arrays.atomCounts.isEmpty()) // nothing to enumerate, which IsoSpec++ cannot do
        return;
    requireUsableAbundances(arrays.isotopeProbabilities);
    // The generator is a local object, so that its accessors are inlined: a virtual call for each
    // of the many configurations would cost as much as the enumeration itself.
    IsoSpec::IsoThresholdGenerator generator(
        IsoSpec::Iso(static_cast<int>(arrays.atomCounts.size()), arrays.isotopeNumbers.constData(),
                     arrays.atomCounts.constData(), arrays.isotopeMasses.constData(),
                     arrays.isotopeProbabilities.constData()),
        probabilityThreshold, true, marginalTableSize, marginalHashSize, true);
    sumByNominalMass(&generator, envelope);
    convertToMassPerCharge(envelope, generator.getLightestPeakMass(), std::max(charges, 1),
                           electronMass);
}

} // namespace chem
