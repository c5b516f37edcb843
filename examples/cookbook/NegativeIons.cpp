#include "Recipes.h"

#include <cmath>

namespace {

//! [DeprotonatedEnvelope]
/// The isotope envelope of a molecule without `charge` of its protons.
QList<QPointF> deprotonatedEnvelope(const Molecule& molecule, int charge,
                                    const ChemicalFactory& factory)
{
    const Molecule ion = factory.modifyMolecule(molecule, u"H1"_s, -charge);
    QList<QPointF> envelope;
    factory.generateIsotopeEnvelope(ion, charge, &envelope, false);
    // The library takes an electron away for each charge; an anion has one more instead.
    const double electron = factory.constructMolecule(u"E"_s).monoMass();
    for (QPointF& point : envelope) {
        if (point.y() > 0.0)
            point.rx() += 2.0 * electron;
    }
    return envelope;
}
//! [DeprotonatedEnvelope]

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

} // namespace

void negativeIons(QTextStream& out)
{
    const auto factory = defaultChemicalFactory();
    const auto adenylicAcid = factory->constructLinearOligoComplex(u"{rA"_s); // AMP
    const QList<QPointF> envelope = deprotonatedEnvelope(*adenylicAcid, 1, *factory);
    for (const QPointF& point : envelope.first(3)) {
        out << QString::number(point.x(), 'f', 4) << ' ' << QString::number(100 * point.y(), 'f', 1)
            << " %\n";
    }
}

void negativeIonsProved(QTextStream& out)
{
    const auto factory = defaultChemicalFactory();
    for (const KnownAnion& known : knownAnions) {
        const auto strand = factory->constructLinearOligoComplex(known.text);
        const double found = deprotonatedEnvelope(*strand, known.charge, *factory).first().x();
        const bool isNear = std::abs(found - known.massToCharge) < known.tolerance;
        out << (isNear ? "ok " : "FAILED ") << known.text << " at -" << known.charge << ": "
            << QString::number(found, 'f', 6) << '\n';
    }
}
