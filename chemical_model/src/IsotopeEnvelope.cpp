#include "ChemicalFactory.h"
#include "IsoData.h"
#include "Logging.h"
#include "TruncateToInt.h"

#include <QDebug>

#include <algorithm>
#include <cstdlib>
#include <limits>

namespace chem {

namespace {

const QLoggingCategory* const genericCategory = createLoggingCategory("zel.generic", QtDebugMsg);

/// Configurations below this probability are left out.
constexpr double probabilityThreshold = 1e-7;
constexpr qsizetype expectedPoints = 100;
constexpr qsizetype expectedElements = 16;
constexpr double heaviestUsualMass = 2e9; ///< Daltons; 32 bits hold a little more.
constexpr int marginalTableSize = 1000;
constexpr int marginalHashSize = 1000;

int magnitude(int charge)
{
    const int lowest = std::numeric_limits<int>::min();
    return charge == lowest ? std::numeric_limits<int>::max() : std::abs(charge);
}

/// Sums the configurations into one point for each nominal mass, counted from that of the lightest
/// peak: `x` as probability times mass, `y` as probability. `truncate` makes a whole number of a
/// mass.
template <typename Truncate>
void sumByNominalMass(IsoSpec::IsoThresholdGenerator* generator, Truncate truncate,
                      QList<QPointF>* envelope)
{
    const double lightestMass = generator->getLightestPeakMass();
    const double offset = lightestMass - static_cast<double>(truncate(lightestMass + 0.5));
    const qint64 base = truncate(lightestMass - offset + 0.5);
    envelope->reserve(expectedPoints);
    QPointF* points = envelope->data();
    qint64 size = 0;
    while (generator->advanceToNextConfiguration()) {
        const double mass = generator->mass();
        const double probability = generator->prob();
        const qint64 bin = truncate(mass - offset + 0.5) - base;
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

/// Enumerates the configurations into points, as sums. Returns the mass of the lightest peak.
///
/// The generator is a local object, so that its accessors are inlined: a virtual call for each of
/// the many configurations would cost as much as the enumeration itself. So would the test whether
/// 32 bits hold a mass, which is made once, for the heaviest peak.
double collectConfigurations(IsoSpec::Iso&& iso, QList<QPointF>* envelope)
{
    IsoSpec::IsoThresholdGenerator generator(std::move(iso), probabilityThreshold, true,
                                             marginalTableSize, marginalHashSize, true);
    if (generator.getHeaviestPeakMass() < heaviestUsualMass)
        sumByNominalMass(
            &generator, [](double mass) { return static_cast<qint64>(mass); }, envelope);
    else
        sumByNominalMass(
            &generator, [](double mass) { return qint64(truncateToInt(mass)); }, envelope);
    return generator.getLightestPeakMass();
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

Molecule ChemicalFactory::generateIsotopeEnvelope(const Molecule& molecule, int charge,
                                                  QList<QPointF>* envelope, bool protonate) const
{
    Molecule result = molecule;
    if (protonate) {
        Molecule hydrogens = hydrogen;
        hydrogens *= magnitude(charge);
        result += hydrogens;
    }

    envelope->clear();
    if (!result.formula().isValid()) {
        qCWarning((*genericCategory), "Isotope envelope can be calculated only with integer "
                                      "non-negative element counts");
        return result;
    }

    QList<QString> elements;
    QList<int> counts;
    elements.reserve(expectedElements);
    counts.reserve(expectedElements);
    result.formula().positiveElementCounts(&elements, &counts);
    if (!hasValidElements(elements)) // nothing to enumerate, which IsoSpec++ cannot do
        return result;

    IsoData data = makeIsoWithDictionary(elements, counts);
    const double lightestMass = collectConfigurations(std::move(data.iso), envelope);
    convertToMassPerCharge(envelope, lightestMass, std::max(magnitude(charge), 1),
                           electron.monoMass());
    return result;
}

} // namespace chem
