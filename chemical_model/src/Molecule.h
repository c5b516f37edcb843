#pragma once

#include "ChemicalFormula.h"
#include <zel_chemical_model/ChemicalModelExport.h>

#include <QString>

namespace chem {

/// \addtogroup formulas
/// @{

/// A composition with its two masses in daltons.
///
/// A molecule carries its masses with it: arithmetic adds the stored numbers and computes nothing
/// again, which keeps sums of residues, modifications and termini cheap. Nothing enforces that the
/// masses belong to the formula. ChemicalFactory::constructMolecule() makes molecules whose masses
/// do.
///
/// \code
/// const auto factory = defaultChemicalFactory();
/// const Molecule water = factory->constructMolecule(u"H2O"_s);
/// const Molecule glycine = factory->constructMolecule(u"C2H5NO2"_s);
/// const Molecule residue = glycine - water; // 57.02146 Da monoisotopic
/// \endcode
///
/// Mind the order: the average mass comes first in the constructor. Values may be used from several
/// threads as long as no thread writes the instance that another one uses.
class ZEL_CHEMICAL_MODEL_EXPORT Molecule
{
public:
    /// Makes a molecule without entries and with masses of 0.0.
    Molecule() = default;

    /// Makes a molecule from a formula and any two masses in daltons, average mass first.
    Molecule(const ChemicalFormula& formula, double averageMass, double monoMass);

    /// Copies both masses; the formula is shared.
    Molecule(const Molecule& other) = default;
    /// Copies both masses; the formula is shared.
    Molecule& operator=(const Molecule& other) = default;
    ~Molecule() = default;

    /// The composition.
    const ChemicalFormula& formula() const { return m_formula; }

    /// The average mass in daltons.
    double averageMass() const { return m_averageMass; }

    /// The monoisotopic mass in daltons.
    double monoMass() const { return m_monoMass; }

    /// Adds the formula and both masses of `other`. Masses are added as they stand, in the order of
    /// the calls, so the same calls give the same bits.
    void operator+=(const Molecule& other);

    /// Subtracts the formula and both masses of `other`. Entries that reach zero stay in the
    /// formula.
    void operator-=(const Molecule& other);

    /// Multiplies the formula and both masses; a negative factor turns a gain into a loss.
    void operator*=(int factor);

    /// A copy with `other` added, as by operator+=().
    Molecule operator+(const Molecule& other) const;
    /// A copy with `other` subtracted, as by operator-=().
    Molecule operator-(const Molecule& other) const;

private:
    ChemicalFormula m_formula;
    double m_averageMass = 0.0;
    double m_monoMass = 0.0;
};

/// A molecule with a short label and a readable name, such as an entry of a dictionary.
///
/// The arithmetic that is inherited gives a plain Molecule and drops the labels.
class ZEL_CHEMICAL_MODEL_EXPORT NamedMolecule : public Molecule
{
public:
    /// Makes a default Molecule with empty texts.
    NamedMolecule() = default;

    /// Makes a named molecule. Mind the order: the name comes before the code.
    NamedMolecule(const Molecule& molecule, const QString& name, const QString& code);

    /// Copies the molecule; both texts are shared.
    NamedMolecule(const NamedMolecule& other) = default;
    /// Copies the molecule and takes the two texts of `other`, which are left empty.
    NamedMolecule(NamedMolecule&& other) noexcept = default;
    /// Copies the molecule; both texts are shared.
    NamedMolecule& operator=(const NamedMolecule& other) = default;
    /// Copies the molecule and takes the two texts of `other`.
    NamedMolecule& operator=(NamedMolecule&& other) noexcept = default;
    ~NamedMolecule() = default;

    /// Adds the formula and both masses of `other`; the labels stay as they are.
    void operator+=(const Molecule& other);

    QString code; ///< The short label, such as the one-letter code of a residue.
    QString name; ///< The readable name.
};

/// @}

} // namespace chem

Q_DECLARE_TYPEINFO(chem::Molecule, Q_RELOCATABLE_TYPE);
Q_DECLARE_TYPEINFO(chem::NamedMolecule, Q_RELOCATABLE_TYPE);
