#pragma once

#include "Backbone.h"
#include "Composition.h"
#include "Parsed.h"
#include <zel_ion_model/IonModelExport.h>

#include <QString>
#include <QStringView>

#include <memory>
#include <optional>
#include <span>
#include <utility>
#include <vector>

namespace ions {

/// \addtogroup ion_fragments
/// @{

class IonPlan;

/// The series of fragment ions, in the order in which they are listed. Those from A to D hold the
/// left end of a chain, those from W to ZDot the right one.
enum class Series : quint8 {
    A,         ///< a.
    ADot,      ///< a., one hydrogen more (peptides).
    B,         ///< b.
    C,         ///< c.
    CDot,      ///< c., one hydrogen more (peptides).
    D,         ///< d (oligonucleotides).
    AMinusB,   ///< a-B: a less the last base and its hydrogen (oligonucleotides).
    W,         ///< w (oligonucleotides).
    X,         ///< x.
    XDot,      ///< x., one hydrogen more (peptides).
    Y,         ///< y.
    Z,         ///< z.
    ZDot,      ///< z., one hydrogen more (peptides).
    Precursor, ///< The whole molecule, with and without its labile groups.
    Immonium,  ///< One residue less CO (peptides).
    Internal   ///< Two or more residues from the middle, as b ions (peptides).
};

/// The name of a series as text has it, such as "b", "z." or "a-B".
ZEL_ION_MODEL_EXPORT QString seriesName(Series series);
/// The series with this name; nothing for any other text.
ZEL_ION_MODEL_EXPORT std::optional<Series> seriesNamed(QStringView name);
/// Tells whether ions of the series hold the left end of their chain and no right one.
ZEL_ION_MODEL_EXPORT bool isLeftSeries(Series series);
/// Tells whether ions of the series hold the right end of their chain and no left one.
ZEL_ION_MODEL_EXPORT bool isRightSeries(Series series);

/// A neutral loss that ions may show.
struct ZEL_ION_MODEL_EXPORT LossRule
{
    NeutralLoss loss; ///< What is lost.
    QString residues; ///< Only ions that hold one of these letters lose it; empty for all ions.

    /// Reads `H2O` or `H2O@STED`: a formula, then letters of residues. A molecule that is labelled
    /// throughout loses labelled atoms: `isotopes` take the place of the elements in the formula,
    /// as those of a Peptidoform do in its residues.
    static Parsed<LossRule> read(QStringView text, const AtomMasses& atoms,
                                 std::span<const Atom> isotopes = {});

    /// Compares both.
    friend bool operator==(const LossRule&, const LossRule&) = default;
};

/// Which ions are wanted.
struct IonOptions
{
    std::vector<Series> series = {Series::B, Series::Y}; ///< In the order of the results.
    /// Charges of either sign, by protons, in the order of the results; 0 is left out.
    std::vector<int> charges = {1};
    std::vector<LossRule> losses; ///< In the order of the results, behind ions without a loss.
    int maxLosses = 1;            ///< The most losses that one ion has, at most 4.
    bool hasGroupLosses = true;   ///< Whether ions lose what the groups that they hold may lose.
    /// Hydrogens more than the series has, in the order of the results. Electron-driven spectra
    /// show -1, 1 and 2 beside 0.
    std::vector<int> hydrogens = {0};

    /// Compares all of them, in order.
    friend bool operator==(const IonOptions&, const IonOptions&) = default;
};

/// Ions of one series, charge and loss with numbers that follow each other.
struct IonRun
{
    quint32 firstNumber = 0;   ///< Of the first ion: its units, the unit itself, or where it ends.
    quint32 count = 0;         ///< How many ions there are.
    quint32 start = 0;         ///< Internal ions: the unit where they start, from 1. Else 0.
    qint16 charge = 1;         ///< With its sign.
    quint16 loss = 0;          ///< Index in FragmentIons::losses(); 0 is no loss.
    Series series = Series::B; ///< The same for all.
    qint8 hydrogens = 0;       ///< More than the series has.
    quint8 chain = 0;          ///< From 0.
    quint8 variant = 0; ///< Counts the ways in which open groups are held, or labile ones lost.
};

/// What an ion is made of.
struct IonComposition
{
    Composition neutral; ///< The ion without its charge: what these protons are added to.
    int charge = 1;      ///< How many protons it has more than that; negative for those it lacks.

    /// Compares both.
    friend bool operator==(const IonComposition&, const IonComposition&) = default;
};

/// Fragment ions of a backbone as plain arrays: one m/z for each ion, and once a run what the ions
/// have in common.
///
/// \code
/// FragmentIons ions;
/// if (!ions.assign(peptide, IonOptions())) // b and y ions at 1+
///     ions.mz()[1];                        // 272.13533, the b2 ion
/// \endcode
///
/// A list takes 8 bytes for each ion and 20 for each run. The next assign() uses the memory again,
/// and what options and breaks come to as long as they and the losses of groups stay the same: then
/// a search allocates nothing. A value: separate instances may be used from separate threads.
class ZEL_ION_MODEL_EXPORT FragmentIons
{
public:
    /// Replaces the ions by those of `backbone`, in the order of series, hydrogens, charge, loss,
    /// chain and number as the options list them. Each series runs from 1 to n - 1.
    ///
    /// Ions hold the groups of their units and their end; labile groups are in the precursor only,
    /// which comes with and without them. An ion that may hold an open group or not comes both
    /// ways; of groups of one mass it counts how many are held. Of linked chains an ion of one side
    /// holds all that hangs on it, and a cut that leaves the molecule in one piece gives no ion.
    ///
    /// Immonium and internal ions of linked units are left out.
    ///
    /// A loss that a rule names and a group has as well comes once, under the rule's name.
    ///
    /// Gives a refusal where open groups make more than 16 variants of one ion or 256 of the ions
    /// of an end, where losses make more than 1,000 combinations, and for charges beyond 10,000 or
    /// shifts beyond 127 hydrogens; then there are no ions.
    [[nodiscard]] std::optional<Error> assign(const Backbone& backbone, const IonOptions& options);

    /// The m/z of the ions, run by run, in daltons, monoisotopic.
    std::span<const double> mz() const { return {m_mz.data(), m_size}; }
    /// The runs in order: the counts add up to the number of ions.
    std::span<const IonRun> runs() const { return m_runs; }
    /// The losses that runs refer to, as texts such as "-H2O"; the first is empty.
    std::span<const QString> losses() const { return m_losses; }

    /// The run of the ion at this index, and which ion of the run it is.
    std::pair<qsizetype, qsizetype> runOf(qsizetype ion) const;

    /// The label of an ion as PSI's mzPAF writes it: "b5", "y7-H2O^2", "IK", "m3:6", "p^2", and
    /// chains by number where there are several ("2:b5"). Peptide series and oligonucleotide series
    /// have one form; dotted series are written with their hydrogen ("z5+H"). A unit without a
    /// letter is X. Empty for an index outside the list and for another backbone that lacks the
    /// ion's chain or unit.
    QString label(const Backbone& backbone, qsizetype ion) const;

    /// The composition of an ion: m/z = (neutral mass + charge × proton) / |charge|, where a proton
    /// is a natural hydrogen less an electron. `backbone` is the one that the ions are of, and
    /// `residues` the table that it was made with. Letters, masses and the compositions that the
    /// backbone holds tell the parts; a stated isotope in what breaks add is known by its mass.
    ///
    /// Refused are an index outside the list, another backbone, losses whose names are no formulas,
    /// and parts of unknown composition, such as groups that are a bare mass: with chain and unit,
    /// or in words for ends, links and groups without a place. Linear in the chain's units for each
    /// call. Any number of threads may ask.
    Parsed<IonComposition> composition(const Backbone& backbone, const ResidueTable& residues,
                                       qsizetype ion) const;

private:
    friend class IonWriter;

    std::vector<double> m_mz; ///< With what an earlier, longer list has left behind its end.
    std::size_t m_size = 0;   ///< How many ions there are.
    std::vector<IonRun> m_runs;
    std::vector<QString> m_losses;
    std::shared_ptr<const IonPlan> m_plan; ///< Of these ions; the next may need the same.
    bool m_hasUniformRuns = false; ///< Whether the runs are all those of the plan, equally long.
};

/// @}

} // namespace ions
