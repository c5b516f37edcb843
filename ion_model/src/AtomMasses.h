#pragma once

#include "Composition.h"
#include "Parsed.h"
#include <zel_chemical_model/ChemicalFactory.h>
#include <zel_chemical_model/Molecule.h>
#include <zel_ion_model/IonModelExport.h>

#include <memory>
#include <span>

namespace ions {

/// \addtogroup ion_compositions
/// @{

/// The mass of an electron in daltons (CODATA 2018).
inline constexpr double electronMass = 0.000548579909065;

/// The two masses of a molecule or a part of one, in daltons.
struct Masses
{
    double monoisotopic = 0.0; ///< Each element as its most abundant isotope.
    double average = 0.0;      ///< Each element as its isotopes weighed by abundance.

    /// Adds both masses of `other`.
    constexpr Masses& operator+=(const Masses& other)
    {
        monoisotopic += other.monoisotopic;
        average += other.average;
        return *this;
    }

    /// Subtracts both masses of `other`.
    constexpr Masses& operator-=(const Masses& other)
    {
        monoisotopic -= other.monoisotopic;
        average -= other.average;
        return *this;
    }

    /// The sum of both.
    friend constexpr Masses operator+(Masses left, const Masses& right) { return left += right; }
    /// The difference of both.
    friend constexpr Masses operator-(Masses left, const Masses& right) { return left -= right; }
    /// Both masses, `factor` times.
    friend constexpr Masses operator*(double factor, const Masses& masses)
    {
        return {factor * masses.monoisotopic, factor * masses.average};
    }

    /// Compares both.
    friend constexpr bool operator==(const Masses&, const Masses&) = default;
};

/// A sum of masses that keeps what rounding takes from it: good to 10^-9 Da for molecules of any
/// size that exists, where a plain sum of tens of thousands of residues is not. What is added
/// should weigh less than what is there already; the first of all may weigh anything.
struct MassSum
{
    Masses high; ///< The rounded sum.
    Masses low;  ///< What was rounded off.

    /// Adds masses.
    constexpr void add(const Masses& masses)
    {
        const Masses sum = high + masses;
        low += masses - (sum - high);
        high = sum;
    }

    /// All that was added.
    constexpr Masses value() const { return high + low; }
};

/// As many masses as a plain sum may have to be good to 10^-9 Da.
inline constexpr qsizetype mostPlainMasses = 250;

/// One isotope of an element.
struct IsotopeShare
{
    double mass = 0.0;      ///< In daltons.
    double abundance = 0.0; ///< As a fraction of the element's atoms.

    /// Compares both.
    friend constexpr bool operator==(const IsotopeShare&, const IsotopeShare&) = default;
};

/// What atoms weigh, read once from a factory: the isotope table that every calculation of this
/// library takes its masses from.
///
/// A labelled factory gives labelled elements. A stated isotope weighs its own mass in both masses:
/// that of the factory's table, else that of the natural table, else, for tritium and the other
/// tracers that are no part of nature, that of the atomic mass evaluation of 2020.
///
/// \code
/// const AtomMasses masses;                        // natural isotopes
/// masses.weigh(Composition::read(u"H2O"_s).value())->monoisotopic; // 18.010565
/// \endcode
///
/// Copies share what was read. Every const function may be called from any number of threads.
class ZEL_ION_MODEL_EXPORT AtomMasses
{
public:
    /// Reads the table of the default factory: natural isotopes.
    AtomMasses();

    /// Reads the table of `factory`, which is not needed afterwards.
    explicit AtomMasses(const chem::ChemicalFactory& factory);

    /// This table with one element labelled: `share` of its atoms are `isotope`, and its other
    /// isotopes keep their ratio to each other, as in a nutrient of 98.7 % nitrogen-15. With a
    /// share of 1 the element has no other isotope, with 0 it lacks this one.
    ///
    /// Refused are atoms that state no isotope or one that no table holds, shares outside 0 to 1,
    /// and shares other than 1 where the element has no other isotope.
    Parsed<AtomMasses> labelled(Atom isotope, double share) const;

    /// The masses of one atom; both are NaN for one that no table holds.
    Masses of(Atom atom) const;

    /// The masses of a composition, good to 10^-9 Da for molecules of any size that exists.
    /// Refused if an atom is in no table; the position is then that of its term.
    Parsed<Masses> weigh(const Composition& composition) const;

    /// The isotopes of an element by mass, or a stated isotope alone with an abundance of 1; empty
    /// for atoms that no table holds. Valid as long as a copy of this object lives.
    std::span<const IsotopeShare> isotopes(Atom atom) const;

    /// The composition as a molecule of the first library. Refused as by weigh().
    Parsed<chem::Molecule> molecule(const Composition& composition) const;

private:
    struct Table;

    explicit AtomMasses(std::shared_ptr<const Table> table);

    std::shared_ptr<const Table> m_table;
};

/// @}

} // namespace ions
