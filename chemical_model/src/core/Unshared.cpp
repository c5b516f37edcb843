#include "core/Unshared.h"

namespace chem {

namespace {

/// Literals have no capacity: nothing counts their copies.
QString unshared(const QString& text)
{
    return text.capacity() == 0 ? text : QString(text.constData(), text.size());
}

} // namespace

Molecule unshared(const Molecule& molecule)
{
    QMap<QString, double> counts = molecule.formula().elementCountMap();
    counts.detach();
    return Molecule(ChemicalFormula(counts), molecule.averageMass(), molecule.monoMass());
}

NamedMolecule unshared(const NamedMolecule& molecule)
{
    return NamedMolecule(unshared(static_cast<const Molecule&>(molecule)), unshared(molecule.name),
                         unshared(molecule.code));
}

QMap<QString, NamedMolecule> unshared(QMap<QString, NamedMolecule> dictionary)
{
    for (NamedMolecule& entry : dictionary)
        entry = unshared(std::as_const(entry));
    return dictionary;
}

} // namespace chem
