#pragma once

#include "AtomMasses.h"
#include "Composition.h"
#include "Parsed.h"
#include "Tolerance.h"
#include <zel_ion_model/IonModelExport.h>

#include <limits>
#include <vector>

namespace ions {

/// \addtogroup ion_patterns
/// @{

/// An element, or a stated isotope, that a formula may hold, and how many of it.
struct AtomLimits
{
    Atom atom;                                     ///< An isotope counts apart from its element.
    int lowest = 0;                                ///< Not below 0.
    int highest = std::numeric_limits<int>::max(); ///< Not below `lowest`.

    /// Compares all three.
    friend bool operator==(const AtomLimits&, const AtomLimits&) = default;
};

/// Which formulas are looked for, and how many.
struct FormulaLimits
{
    std::vector<AtomLimits> atoms; ///< All that a formula may hold, each once.

    /// Double bonds and rings, as unsaturation() counts them.
    double lowestUnsaturation = -std::numeric_limits<double>::infinity();
    /// Likewise; both ends are allowed.
    double highestUnsaturation = std::numeric_limits<double>::infinity();

    qsizetype formulas = 10000;   ///< How many are given at most, at least 1.
    qint64 steps = 1'000'000'000; ///< How many counts are tried at most, some seconds of work.
};

/// A formula whose mass fits.
struct FormulaMatch
{
    Composition composition; ///< What it is made of.
    double mass = 0.0;       ///< Its monoisotopic mass in daltons, as AtomMasses::weigh() gives it.
    double ppm = 0.0;        ///< How far the measured mass lies from this one.
    double unsaturation = 0.0; ///< Double bonds and rings.
};

/// The formulas of a mass, the nearest first.
struct FormulaMatches
{
    std::vector<FormulaMatch> matches; ///< By the size of their ppm, equals by their text.
    /// Tells whether these are all. If not, either there were more than the limit and these are the
    /// nearest, or the steps were used up.
    bool isComplete = true;
};

/// Every formula within the limits whose neutral monoisotopic mass has `mass`, in daltons, within
/// its tolerance. A formula without atoms is none.
///
/// \code
/// const AtomMasses masses;
/// const Atom carbon{6, 0}, hydrogen{1, 0}, nitrogen{7, 0}, oxygen{8, 0};
/// FormulaLimits limits{{{carbon}, {hydrogen}, {nitrogen}, {oxygen, 1, 4}}, 0.0};
/// const auto found = findFormulas(194.0804, ppm(5), limits, masses).value();
/// found.matches[0].composition.toString(); // "C8H10N4O2"
/// \endcode
///
/// Refused are a mass that is not above 0, or above 100 MDa with its tolerance, a tolerance of
/// 1000000 ppm or more, a limit of formulas or steps below 1, limits of unsaturation that are NaN
/// or contradict each other; and, at the index of the atom, one that no table holds, one that was
/// there before, and counts that contradict themselves.
///
/// The time grows with the number of formulas of all atoms but the lightest up to this mass. May be
/// called from any number of threads.
ZEL_ION_MODEL_EXPORT Parsed<FormulaMatches> findFormulas(double mass, Tolerance tolerance,
                                                         const FormulaLimits& limits,
                                                         const AtomMasses& atoms);

/// The double bonds and rings of a neutral molecule, also known as double bond equivalents:
/// 1 + sum of count * (valence - 2) / 2. The valence of the main groups is 1 2 3 4 3 2 1 0,
/// whatever the molecule is, and that of all other elements is taken to be 2. Half a bond tells of
/// a radical or an ion. May be called from any number of threads.
ZEL_ION_MODEL_EXPORT double unsaturation(const Composition& composition);

/// One of the two masses of a molecule.
enum class MassKind {
    Monoisotopic, ///< Each element as its most abundant isotope.
    Average,      ///< Each element as its isotopes weighed by abundance.
};

/// A protein of average composition that weighs `mass` daltons: units of averagine,
/// C4.9384 H7.7583 N1.3577 O1.4773 S0.0417 (Senko, Beu and McLafferty 1995), 111.1254 Da on the
/// average, with whole counts, and so many hydrogens that the mass is met to half a hydrogen atom.
///
/// Refused is a mass that is not above 0, or above 100 MDa. May be called from any number of
/// threads.
ZEL_ION_MODEL_EXPORT Parsed<Composition> averagine(double mass, MassKind kind,
                                                   const AtomMasses& atoms);

/// @}

} // namespace ions
