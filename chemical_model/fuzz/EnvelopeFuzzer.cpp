// The first byte gives the charge and whether to add hydrogens, the rest is formula text. Counts
// are cut down, by the number of isotopes, to what is enumerated in a moment; those that IsoSpec++
// refuses and those that no molecule has stay.

#include "Require.h"
#include <ChemicalFactory.h>

#include <QLoggingCategory>

#include <algorithm>
#include <cmath>
#include <exception>
#include <optional>

using namespace Qt::StringLiterals;

namespace {

using chem::ChemicalFormula;
using chem::Molecule;

constexpr double refusedCount = 10485759.0; ///< From here on IsoSpec++ throws.
constexpr qsizetype maximalElements = 4;
constexpr qsizetype maximalText = 64;

/// A factory that tells how many isotopes it knows.
struct IsotopeFactory : public chem::ChemicalFactory
{
    IsotopeFactory() { init(QString()); }
    qsizetype isotopeNumber(const QString& symbol) const
    {
        return isotopesBySymbol.value(symbol).size();
    }
};

const IsotopeFactory& factory()
{
    static const IsotopeFactory shared;
    return shared;
}

double maximalCount(const QString& symbol)
{
    const qsizetype isotopes = factory().isotopeNumber(symbol);
    if (isotopes <= 1)
        return refusedCount;
    return isotopes <= 3 ? 32.0 : isotopes <= 5 ? 4.0 : 1.0;
}

ChemicalFormula boundedFormula(const QString& text)
{
    QMap<QString, double> counts;
    const ChemicalFormula parsed = chem::ChemicalFactory::parseChemicalFormula(text);
    const QMap<QString, double>& all = parsed.elementCountMap();
    for (auto entry = all.cbegin(); entry != all.cend(); ++entry) {
        if (counts.size() == maximalElements)
            break;
        const bool isRefused = !(entry.value() < refusedCount);
        counts.insert(entry.key(), isRefused ? entry.value()
                                             : std::fmod(entry.value(), maximalCount(entry.key())));
    }
    return ChemicalFormula(counts);
}

/// Whether IsoSpec++ refuses the counts of a valid formula.
bool isRefused(const ChemicalFormula& formula)
{
    const QMap<QString, double>& counts = formula.elementCountMap();
    return std::any_of(counts.keyValueBegin(), counts.keyValueEnd(), [](const auto& entry) {
        return entry.second >= refusedCount && factory().isotopeNumber(entry.first) > 0;
    });
}

struct Outcome
{
    Molecule molecule;
    QList<QPointF> envelope;
};

/// The envelope, or nothing where an exception passes.
std::optional<Outcome> calculate(const Molecule& molecule, int charge, bool protonate)
{
    Outcome outcome{Molecule(), {QPointF(1.0, 2.0)}};
    try {
        outcome.molecule =
            factory().generateIsotopeEnvelope(molecule, charge, &outcome.envelope, protonate);
    } catch (const std::exception&) {
        require(outcome.envelope.isEmpty(), "the list is emptied first");
        return std::nullopt;
    }
    return outcome;
}

void checkPoints(const QList<QPointF>& envelope, bool hasElectrons)
{
    double sum = 0.0;
    double previous = -HUGE_VAL;
    for (const QPointF& point : envelope) {
        require(std::isfinite(point.x()) && point.y() >= 0.0, "points are finite");
        sum += point.y();
        if (point.y() == 0.0)
            continue;
        require(point.x() > previous, "points with a share ascend");
        previous = point.x();
    }
    require(hasElectrons || sum <= 1.0 + 1e-9, "shares add up to one at most");
}

void checkOutcome(const Outcome& outcome, const Molecule& molecule, int added)
{
    const ChemicalFormula& formula = outcome.molecule.formula();
    const double hydrogens = molecule.formula().elementCountMap().value(u"H"_s) + added;
    const double counted = formula.elementCountMap().value(u"H"_s);
    require(counted == hydrogens || (std::isnan(counted) && std::isnan(hydrogens)),
            "one hydrogen for each charge");
    require(formula.isValid() || outcome.envelope.isEmpty(), "odd formulas have no envelope");
    checkPoints(outcome.envelope, formula.elementCountMap().value(u"E"_s) > 0.0);
}

bool haveSameBits(const QList<QPointF>& a, const QList<QPointF>& b)
{
    return std::equal(
        a.cbegin(), a.cend(), b.cbegin(), b.cend(),
        [](const QPointF& p, const QPointF& q) { return p.x() == q.x() && p.y() == q.y(); });
}

} // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***)
{
    QLoggingCategory::setFilterRules(u"zel.generic.warning=false"_s);
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size)
{
    if (size == 0)
        return 0;
    const int charge = data[0] % 32;
    const bool protonate = data[0] >= 128;
    const QByteArray bytes(reinterpret_cast<const char*>(data + 1),
                           static_cast<qsizetype>(size - 1));
    const Molecule molecule(boundedFormula(QString::fromLatin1(bytes.left(maximalText))), 2.0, 1.0);

    const auto outcome = calculate(molecule, charge, protonate);
    const auto mirrored = calculate(molecule, -charge, protonate);
    require(outcome.has_value() == mirrored.has_value(), "the sign of the charge does not matter");
    const int added = protonate ? charge : 0;
    if (!outcome) {
        require(isRefused(molecule.formula()), "only counts beyond the limit throw");
        return 0;
    }
    checkOutcome(*outcome, molecule, added);
    require(haveSameBits(outcome->envelope, mirrored->envelope),
            "the sign of the charge does not matter");
    require(!outcome->molecule.formula().isValid() || !isRefused(molecule.formula()),
            "counts beyond the limit throw");
    return 0;
}
