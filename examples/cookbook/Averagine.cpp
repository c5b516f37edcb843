#include "Recipes.h"

#include <algorithm>

void averagine(QTextStream& out)
{
    const auto factory = defaultChemicalFactory();
    const QString averageResidue = u"C4.9384H7.7583N1.3577O1.4773S0.0417"_s;
    constexpr double mass = 8564.8;

    const Molecule hydrogen = factory->constructMolecule(u"H"_s);
    //! [Averagine]
    double unitMass = 0.0;
    const auto counts = ChemicalFactory::parseChemicalFormula(averageResidue).elementCountMap();
    for (auto entry = counts.cbegin(); entry != counts.cend(); ++entry)
        unitMass += entry.value() * factory->constructMolecule(entry.key()).averageMass();
    QString formula;
    for (auto entry = counts.cbegin(); entry != counts.cend(); ++entry)
        formula += entry.key() + QString::number(qRound(mass / unitMass * entry.value()));
    Molecule scaled = factory->constructMolecule(formula);
    const double missing = (mass - scaled.averageMass()) / hydrogen.averageMass();
    scaled = factory->modifyMolecule(scaled, u"H1"_s, qRound(missing));
    //! [Averagine]
    out << scaled.formula().toString() << ' ' << QString::number(scaled.averageMass(), 'f', 2)
        << " Da\n";

    QList<QPointF> envelope;
    factory->generateIsotopeEnvelope(scaled, 10, &envelope, true);
    const auto highest = std::max_element(
        envelope.cbegin(), envelope.cend(),
        [](const QPointF& left, const QPointF& right) { return left.y() < right.y(); });
    out << "highest peak at m/z " << QString::number(highest->x(), 'f', 3) << ", "
        << highest - envelope.cbegin() << " above the lightest\n";
}
