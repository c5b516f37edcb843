#pragma once

#include "AtomMasses.h"
#include "Composition.h"
#include "Parsed.h"
#include <zel_ion_model/IonModelExport.h>

#include <QString>
#include <QStringView>

#include <vector>

namespace ions {

/// \addtogroup ion_compositions
/// @{

/// What turns neutral molecules into an ion: how many molecules, what is added or taken away, and
/// the charge, of either sign.
///
/// \code
/// const Ionization sodiated = Ionization::read(u"[M+H+Na]2+").value();
/// sodiated.mz(1045.5345); // (M + H + Na - 2 electrons) / 2
/// Ionization::protons(-3).toString(); // "[M-3H]3-"
/// \endcode
///
/// Carriers have natural isotopes, however the molecule is labelled. A value: separate instances
/// may be used from separate threads.
class ZEL_ION_MODEL_EXPORT Ionization
{
public:
    /// Protons for charges: `charge` of them are added, or taken away below zero. A charge of 0
    /// gives [M+H]+, and -2147483648 counts as -2147483647.
    static Ionization protons(int charge);

    /// Reads the notation of an ion:
    ///
    ///     [M+2H]2+   [M-3H]3-   [M+H+Na]2+   [M+NH4]+   [M+Cl]-   [2M+H]+
    ///     [M]+.   [M+3H]2+.   [M+2H]+.   [M-2H]-.   radicals
    ///     +2  -3     protons added, or taken away
    ///
    /// Carriers are formulas with a count in front. Those whose charge is known have to add up to
    /// the charge behind the bracket: H, the alkali metals, Ag and NH4 have 1, the alkaline earth
    /// metals and Zn have 2, the halogens, HCOO, CH3COO, CF3COO, NO3 and HSO4 have -1, and H2O,
    /// NH3, CH3OH, CH3CN and CO2 none. Isotopes are carriers as their elements are, and `H2` or
    /// `(NH4)2` are two. The dot of a radical says that the charge differs from theirs by exactly
    /// one electron, taken or added. Where any other carrier stands, its charge is what is missing.
    /// `[M]+` is a molecule that is an ion by itself: it loses its electron as `[M]+.` does.
    /// Charges and counts reach 10000.
    static Parsed<Ionization> read(QStringView text);

    /// The charge with its sign; never 0.
    int charge() const { return m_charge; }
    /// How many molecules the ion holds, at least 1.
    int molecules() const { return m_molecules; }
    /// What is added to the molecules; negative counts are taken away. An isotope pattern of the
    /// ion is made of these atoms too.
    const Composition& carriers() const { return m_carriers; }

    /// The m/z of the ion of a molecule with this mass: molecules plus carriers less one electron
    /// for each charge, over the size of the charge. In daltons; give monoisotopic masses.
    double mz(double monoisotopicMass) const
    {
        return (m_molecules * monoisotopicMass + m_added.monoisotopic) / size();
    }

    /// The same for average masses.
    double averageMz(double averageMass) const
    {
        return (m_molecules * averageMass + m_added.average) / size();
    }

    /// The neutral monoisotopic mass whose ion has this m/z: the way back of mz().
    double neutralMass(double mz) const
    {
        return (mz * size() - m_added.monoisotopic) / m_molecules;
    }

    /// The canonical notation, such as `[M+H+Na]2+`: carriers as written, in their order. Reads
    /// back to an equal value, unless protons() was given more charges than read() takes.
    QString toString() const;

    /// Compares molecules, carriers as written, radical and charge.
    friend bool operator==(const Ionization&, const Ionization&) = default;

private:
    /// One carrier as it was written.
    struct Carrier
    {
        int count = 1; ///< Below zero where it is taken away.
        QString formula;

        friend bool operator==(const Carrier&, const Carrier&) = default;
    };
    friend class IonizationText;

    Ionization() = default;
    double size() const { return m_charge < 0 ? -m_charge : m_charge; }
    void weigh();

    int m_molecules = 1;
    int m_charge = 1;
    bool m_isRadical = false;
    std::vector<Carrier> m_written;
    Composition m_carriers;
    Masses m_added; ///< Carriers less electrons.
};

/// @}

} // namespace ions
