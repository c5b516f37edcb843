#include "Molecule.h"

namespace chem {

Molecule::Molecule(const ChemicalFormula& formula, double averageMass, double monoMass)
    : m_formula(formula)
    , m_averageMass(averageMass)
    , m_monoMass(monoMass)
{
}

void Molecule::operator+=(const Molecule& other)
{
    m_formula += other.m_formula;
    m_averageMass += other.m_averageMass;
    m_monoMass += other.m_monoMass;
}

void Molecule::operator-=(const Molecule& other)
{
    m_formula -= other.m_formula;
    m_averageMass -= other.m_averageMass;
    m_monoMass -= other.m_monoMass;
}

void Molecule::operator*=(int factor)
{
    m_formula *= factor;
    m_averageMass *= factor;
    m_monoMass *= factor;
}

Molecule Molecule::operator+(const Molecule& other) const
{
    Molecule sum = *this;
    sum += other;
    return sum;
}

Molecule Molecule::operator-(const Molecule& other) const
{
    Molecule difference = *this;
    difference -= other;
    return difference;
}

NamedMolecule::NamedMolecule(const Molecule& molecule, const QString& readableName,
                             const QString& label)
    : Molecule(molecule)
    , code(label)
    , name(readableName)
{
}

void NamedMolecule::operator+=(const Molecule& other)
{
    Molecule::operator+=(other);
}

} // namespace chem
