#include "Recipes.h"

namespace {

/// The averagine unit times `units`, in whole atoms.
QString averagineOf(double mass)
{
    const double units = mass / 111.1254;
    return u"C%1H%2N%3O%4S%5"_s.arg(qRound(4.9384 * units))
        .arg(qRound(7.7583 * units))
        .arg(qRound(1.3577 * units))
        .arg(qRound(1.4773 * units))
        .arg(qRound(0.0417 * units));
}

} // namespace

void shareLeftOut(QTextStream& out)
{
    QList<QString> formulas;
    for (const double mass : {1e3, 1e4, 2.5e4, 5e4, 1e5, 1.5e5, 3e5})
        formulas.append(averagineOf(mass));
    formulas.append(u"C6470H10012N1726O2013S42"_s); // trastuzumab

    const auto factory = defaultChemicalFactory();
    const double electron = factory->constructMolecule(u"E"_s).monoMass();
    out << "daltons, % left out, centroid ppm light\n";
    for (const QString& formula : std::as_const(formulas)) {
        const Molecule molecule = factory->constructMolecule(formula);
        QList<QPointF> envelope;
        factory->generateIsotopeEnvelope(molecule, 1, &envelope, false);
        double share = 0.0;
        double centroid = 0.0;
        for (const QPointF& peak : std::as_const(envelope)) {
            share += peak.y();
            centroid += peak.x() * peak.y();
        }
        const double missing = molecule.averageMass() - electron - centroid / share;
        out << QString::number(molecule.averageMass(), 'f', 0).rightJustified(7)
            << QString::number(100.0 * (1.0 - share), 'g', 2).rightJustified(12)
            << QString::number(missing / molecule.averageMass() * 1e6, 'f', 2).rightJustified(20)
            << '\n';
    }
}
