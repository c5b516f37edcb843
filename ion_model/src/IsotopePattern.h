#pragma once

#include "AtomMasses.h"
#include "Composition.h"
#include "Parsed.h"
#include <zel_ion_model/IonModelExport.h>

#include <array>
#include <optional>
#include <span>
#include <vector>

namespace ions {

/// \addtogroup ion_patterns
/// @{

/// Atoms of a molecule that share one table of abundances: the whole molecule, the residues of a
/// labelled protein, the impure reagent that was bound to it, or the hydrogens that exchange.
struct IsotopeGroup
{
    Composition composition; ///< The atoms; none of the counts may be negative.
    AtomMasses atoms;        ///< What they weigh and in which shares.
};

/// The coverage that patterns have unless another is asked for.
inline constexpr double usualCoverage = 0.9999;
/// The largest coverage that a pattern can be asked for.
inline constexpr double largestCoverage = 1.0 - 1e-9;

/// How the molecules of one composition share out among nominal masses: one bin for each number of
/// extra neutrons, with the share of the molecules in it and their mean mass, the centroid.
///
/// The mean of a pattern is too light by what the coverage leaves out, more of which is heavy: take
/// the average mass for one, as AtomMasses::weigh() gives it. For the pattern of an ion, add
/// Ionization::carriers() to the molecule's atoms first: carriers have isotopes as well, and with
/// chlorine they move a quarter of the molecules by two bins.
///
/// Bins count from the lightest isotopologue of the atoms' tables; an isotope's nominal mass is its
/// mass number. The bins are the shortest run whose shares add up to the coverage. Shares are not
/// renormalised.
///
/// \code
/// const AtomMasses natural;
/// const AtomMasses heavy = natural.labelled({7, 15}, 0.987).value();
/// const IsotopeGroup residues{Composition::read(u"C43H67N13O11"_s).value(), heavy};
/// const IsotopeGroup reagent{Composition::read(u"C2H2O"_s).value(), natural};
/// const auto pattern = IsotopePattern::of(std::array{residues, reagent}).value();
/// const double first = pattern.centroids()[0]; // in Da, of the bin pattern.firstBin()
/// \endcode
///
/// Shares are good to 10^-9. A centroid is good to 10^-7 Da where its share is above a hundredth of
/// what the coverage leaves out, and lies within the masses of its bin anywhere.
///
/// A value: separate instances may be used from separate threads.
class ZEL_ION_MODEL_EXPORT IsotopePattern
{
public:
    /// No bins.
    IsotopePattern() = default;

    /// The pattern of a composition. Refused as by fill().
    static Parsed<IsotopePattern> of(const Composition& composition, const AtomMasses& atoms,
                                     double coverage = usualCoverage);

    /// The pattern of a molecule that is made of groups. Refused as by fill().
    static Parsed<IsotopePattern> of(std::span<const IsotopeGroup> groups,
                                     double coverage = usualCoverage);

    /// Replaces this pattern by that of the groups' atoms together. The memory of earlier calls is
    /// used again, so that a search allocates nothing. No atoms give one bin of mass 0.
    ///
    /// `coverage` is a share of what the abundances add up to, above 0 and at most largestCoverage.
    ///
    /// Refused, with the pattern left as it was: another coverage; and at the position of the term,
    /// counted through all groups, a negative count, an atom that is in no table, an element whose
    /// abundances do not add up to 1 within 10^-6, and more than 100 MDa altogether.
    [[nodiscard]] std::optional<Error> fill(std::span<const IsotopeGroup> groups,
                                            double coverage = usualCoverage);

    /// The mean mass of each bin in daltons, ascending. A bin that no isotopologue falls into lies
    /// evenly between its neighbours.
    const std::vector<double>& centroids() const { return m_centroids; }

    /// The share of each bin, as a fraction of all molecules.
    const std::vector<double>& shares() const { return m_shares; }

    /// The extra neutrons of the first bin.
    qint64 firstBin() const { return m_firstBin; }

    /// The extra neutrons of the molecule whose atoms are each the most abundant isotope in their
    /// group's table. Large molecules lack this bin: it may lie in front of the first.
    qint64 monoisotopicBin() const { return m_monoisotopicBin; }

    /// The index in shares() and centroids() of the largest share, the first of equal ones; -1 if
    /// there are no bins. The bin that a spectrum shows highest: above some kDa it is not the one
    /// that mostAbundantMass() falls into, since a bin sums many isotopologues.
    qsizetype highestBin() const;

    /// Compares bins, centroids and shares.
    friend bool operator==(const IsotopePattern&, const IsotopePattern&) = default;

private:
    class Builder;

    std::vector<double> m_centroids;
    std::vector<double> m_shares;
    qint64 m_firstBin = 0;
    qint64 m_monoisotopicBin = 0;
    std::array<std::vector<double>, 5> m_scratch; ///< Empty between calls, with their memory.
};

/// The isotopologues of a molecule one by one, by mass.
struct FineStructure
{
    std::vector<double> masses; ///< In daltons, ascending.
    std::vector<double> shares; ///< Of each, as a fraction of all molecules.
    bool isComplete = true;     ///< Tells whether the coverage was reached within the limit.

    /// Compares all of it.
    friend bool operator==(const FineStructure&, const FineStructure&) = default;
};

/// The fewest isotopologues whose shares add up to `coverage`; those of one composition of isotopes
/// count as one, also where atoms of several groups have the same isotopes in the same shares. The
/// atoms of an element that groups have in different shares are told apart as two elements are.
///
/// At most `limit` isotopologues are given: the number grows fast with the molecule, and where the
/// limit ends the list before the coverage is reached, `isComplete` is false and the list holds the
/// most abundant.
///
/// Refused as by IsotopePattern::fill(), and where there are more than 10485758 such atoms of an
/// element or a limit is below 1. May be called from any number of threads.
ZEL_ION_MODEL_EXPORT Parsed<FineStructure> fineStructure(std::span<const IsotopeGroup> groups,
                                                         double coverage = usualCoverage,
                                                         qsizetype limit = 1000000);

/// The mass of the likeliest isotopologue in daltons. Above some kDa the fullest bin of a pattern,
/// IsotopePattern::highestBin(), is another one: many isotopologues share it, none of
/// which is the likeliest. So it is 7124.283 Da here and 7126.282 Da there for nusinersen. Refused
/// as by fineStructure().
ZEL_ION_MODEL_EXPORT Parsed<double> mostAbundantMass(std::span<const IsotopeGroup> groups);

/// @}

} // namespace ions
