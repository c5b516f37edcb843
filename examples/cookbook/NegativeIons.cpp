#include "Recipes.h"
#include <IonModel.h>

#include <QPointF>

#include <cmath>
#include <cstdlib>
#include <utility>

using namespace ions;

namespace {

//! [IonPattern]
/// The isotope pattern of an ion as m/z and shares: carriers bring isotopes of their own.
QList<QPointF> ionPattern(const Composition& molecule, const Ionization& ion)
{
    Composition atoms;
    if (!atoms.add(molecule, ion.molecules()) || !atoms.add(ion.carriers()))
        return {}; // a count does not fit
    const IsotopePattern pattern = IsotopePattern::of(atoms, AtomMasses()).value();
    QList<QPointF> points;
    for (std::size_t i = 0; i < pattern.shares().size(); ++i) {
        const double mass = pattern.centroids()[i] - ion.charge() * ions::electronMass;
        points.append({mass / std::abs(ion.charge()), pattern.shares()[i]});
    }
    return points;
}
//! [IonPattern]

struct KnownAnion
{
    QString text;
    int charge;
    double massToCharge;
    double tolerance;
};

constexpr double proton = 1.007276467; // CODATA

/// Adenylic acid as spectral libraries list it. The strands by the monoisotopic masses of
/// mass-tools in chemical_model/tests/data/oligonucleotides.json.
const QList<KnownAnion> knownAnions = {
    {u"{rA"_s, 1, 346.0558, 5e-5},
    {u"TGTAA"_s, 1, 1501.304040 - proton, 2e-6},
    {u"TGTAA"_s, 3, 1501.304040 / 3 - proton, 2e-6},
    {u"ATCATGGGA"_s, 4, 2761.513058 / 4 - proton, 2e-6},
    {u"CAGGGCCTTGGGACG"_s, 6, 4631.804650 / 6 - proton, 2e-6},
};

Composition compositionOf(const QString& text)
{
    const auto strand = defaultChemicalFactory()->constructLinearOligoComplex(text);
    return Composition::fromFormula(strand->formula()).value();
}

} // namespace

void negativeIons(QTextStream& out)
{
    const Composition glucose = Composition::read(u"C6H12O6").value();
    const Composition adenylicAcid = compositionOf(u"{rA"_s); // AMP
    for (const auto& [molecule, carrier] :
         {std::pair(glucose, u"[M+Cl]-"_s), std::pair(adenylicAcid, u"[M-H]-"_s)}) {
        out << carrier;
        const QList<QPointF> points = ionPattern(molecule, Ionization::read(carrier).value());
        for (const QPointF& point : points.first(3)) {
            out << ' ' << QString::number(point.x(), 'f', 4) << ' '
                << QString::number(100 * point.y(), 'f', 1) << " %";
        }
        out << '\n';
    }
}

void negativeIonsProved(QTextStream& out)
{
    for (const KnownAnion& known : knownAnions) {
        const Ionization ion = Ionization::protons(-known.charge);
        const double found = ionPattern(compositionOf(known.text), ion).first().x();
        const bool isNear = std::abs(found - known.massToCharge) < known.tolerance;
        out << (isNear ? "ok " : "FAILED ") << known.text << " at -" << known.charge << ": "
            << QString::number(found, 'f', 6) << '\n';
    }
}
