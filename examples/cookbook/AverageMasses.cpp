#include "Recipes.h"

namespace {

/// The mass by a table of average atomic masses that takes carbon at 12.0107.
double massByTable(const ChemicalFormula& formula)
{
    const QMap<QString, double> table = {
        {u"C"_s, 12.0107}, {u"H"_s, 1.00794},   {u"N"_s, 14.0067},    {u"O"_s, 15.9994},
        {u"S"_s, 32.065},  {u"P"_s, 30.973762}, {u"Na"_s, 22.989769}, {u"Cl"_s, 35.453}};
    double mass = 0.0;
    const auto counts = formula.elementCountMap();
    for (auto entry = counts.cbegin(); entry != counts.cend(); ++entry)
        mass += entry.value() * table.value(entry.key());
    return mass;
}

} // namespace

void averageMasses(QTextStream& out)
{
    const auto factory = defaultChemicalFactory();
    for (const QString& symbol : {u"C"_s, u"H"_s, u"N"_s, u"O"_s, u"S"_s}) {
        const Molecule atom = factory->constructMolecule(symbol);
        const double byTable = massByTable(atom.formula());
        out << symbol << ' ' << QString::number(atom.monoMass(), 'f', 6) << ' '
            << QString::number(atom.averageMass(), 'f', 6) << ' '
            << QString::number((atom.averageMass() - byTable) / byTable * 1e6, 'f', 1) << " ppm\n";
    }
    const QString ubiquitin =
        u"MQIFVKTLTGKTITLEVEPSDTIENVKAKIQDKEGIPPDQQRLIFAGKQLEDGRTLSDYNIQKESTLHLVLRLRGG"_s;
    const QString nusinersen = u"eT*eQ*eA*eQ*eT*eT*eT*eQ*eA*eT*eA*eA*eT*eG*eQ*eT*eG*eG"_s;
    const QList<std::pair<QString, Molecule>> molecules = {
        {u"glucose"_s, factory->constructMolecule(u"C6H12O6"_s)},
        {u"ubiquitin"_s, *factory->constructLinearPeptideComplex(ubiquitin)},
        {u"nusinersen"_s, *factory->constructLinearOligoComplex(nusinersen)}};
    for (const auto& [name, molecule] : molecules) {
        const double byTable = massByTable(molecule.formula());
        out << name << ' ' << QString::number(molecule.averageMass(), 'f', 4) << ", by the table "
            << QString::number(byTable, 'f', 4) << ": "
            << QString::number((molecule.averageMass() - byTable) / byTable * 1e6, 'f', 1)
            << " ppm\n";
    }
}
