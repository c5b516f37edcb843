#pragma once

#include "Molecule.h"
#include "core/FormulaSum.h"

namespace chem {

/// Adds molecules up in the order given; every double has the bits that Molecule::operator+=()
/// would give it.
class MoleculeSum
{
public:
    MoleculeSum() = default;

    /// Starts from `first` as it stands.
    explicit MoleculeSum(const Molecule& first)
        : m_formula(first.formula())
        , m_averageMass(first.averageMass())
        , m_monoMass(first.monoMass())
    {
    }

    void add(const Molecule& molecule)
    {
        m_formula.add(molecule.formula());
        m_averageMass += molecule.averageMass();
        m_monoMass += molecule.monoMass();
    }

    Molecule result() const { return Molecule(m_formula.result(), m_averageMass, m_monoMass); }

private:
    FormulaSum m_formula;
    double m_averageMass = 0.0;
    double m_monoMass = 0.0;
};

} // namespace chem
