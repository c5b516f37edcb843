#pragma once

#include "Backbone.h"
#include "Composition.h"
#include "Parsed.h"
#include <zel_ion_model/IonModelExport.h>

#include <QString>
#include <QStringView>

#include <cstddef>
#include <iterator>
#include <memory>
#include <optional>
#include <span>
#include <utility>
#include <vector>

namespace ions {

/// \addtogroup ion_fragments
/// @{

class FragmentIons;
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
    Internal,  ///< Two or more residues from the middle, as b ions (peptides).
    GlycanY,   ///< Y: the whole molecule with a part of its glycans, from none on.
    Oxonium,   ///< Parts of a glycan alone, with one proton.
    Reporter   ///< What a label is known by, alone, with one charge.
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
    std::vector<LossRule> losses = {}; ///< In the order of the results, behind ions without a loss.
    int maxLosses = 1;                 ///< The most losses that one ion has, at most 4.
    bool hasGroupLosses = true; ///< Whether ions lose what the groups that they hold may lose.
    /// Hydrogens more than the series has, in the order of the results. Electron-driven spectra
    /// show -1, 1 and 2 beside 0.
    std::vector<int> hydrogens = {0};

    /// Compares all of them, in order.
    friend bool operator==(const IonOptions&, const IonOptions&) = default;
};

/// Ions of one series, charge and loss with numbers that follow each other.
struct IonRun
{
    /// Of the first ion: its units, the unit itself, where it ends; of Y ions how many
    /// monosaccharides they have, oxonium and reporter ions are counted.
    quint32 firstNumber = 0;
    quint32 count = 0; ///< How many ions there are.
    /// Internal ions: the unit where they start, from 1. Y ions: which of the ways to keep a part
    /// of the glycans, from 1. Else 0.
    quint32 start = 0;
    qint16 charge = 1;         ///< With its sign.
    quint16 loss = 0;          ///< Index in FragmentIons::losses(); 0 is no loss.
    Series series = Series::B; ///< The same for all.
    qint8 hydrogens = 0;       ///< More than the series has.
    quint8 chain = 0;          ///< From 0.
    quint8 variant = 0; ///< Counts the ways in which open groups are held, or labile ones lost.
};

/// The runs of a list of ions, in order: the counts add up to the number of ions. A view, good for
/// as long as its list stays as and where it is.
class ZEL_ION_MODEL_EXPORT IonRuns
{
public:
    /// Walks over the runs, which it hands out as values.
    class Iterator
    {
    public:
        using iterator_category = std::input_iterator_tag; ///< What algorithms may ask of it.
        using value_type = IonRun;                         ///< What it hands out.
        using difference_type = std::ptrdiff_t;            ///< Between two of them.
        using pointer = void;                              ///< A value has no place.
        using reference = IonRun;                          ///< What it hands out.

        /// At the run of this index.
        Iterator(const FragmentIons* ions, std::size_t index)
            : m_ions(ions)
            , m_index(index)
        {
        }

        /// The run.
        IonRun operator*() const { return IonRuns(*m_ions)[m_index]; }
        /// Goes on to the next run.
        Iterator& operator++()
        {
            ++m_index;
            return *this;
        }
        /// The same; gives where it was.
        Iterator operator++(int)
        {
            const Iterator before = *this;
            ++m_index;
            return before;
        }
        /// Tells whether both are at the same run of one list.
        friend bool operator==(const Iterator&, const Iterator&) = default;

    private:
        const FragmentIons* m_ions;
        std::size_t m_index;
    };

    /// Those of `ions`.
    explicit IonRuns(const FragmentIons& ions)
        : m_ions(&ions)
    {
    }

    /// How many runs there are.
    std::size_t size() const;
    /// Tells whether there are none.
    bool empty() const { return size() == 0; }
    /// The run of this index, which is below size().
    IonRun operator[](std::size_t index) const;
    /// The first run.
    Iterator begin() const { return {m_ions, 0}; }
    /// Behind the last run.
    Iterator end() const { return {m_ions, size()}; }

private:
    const FragmentIons* m_ions;
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
/// A list takes 8 bytes for each ion, and 20 for each run unless all runs are the whole series of
/// one chain. The next assign() uses the memory again, and what options and breaks come to as long
/// as they and the losses of groups stay the same: then a search allocates nothing. Keep an object
/// for each set of options: another set is laid out anew, which takes longer than the ions of a
/// peptide. A value: separate instances may be used from separate threads.
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
    /// Immonium and internal ions of linked units are left out. A series that the chain's polymer
    /// does not have, such as w of a peptide, and a charge of 0 give no ions and no refusal.
    ///
    /// Y ions have every part of the monosaccharides, whichever glycan they are of; oxonium ions
    /// have one to three of them, and of single ones there are the ions that their rings are known
    /// for. Nothing is told about how they are joined. Oxonium and reporter ions come where charge
    /// 1, no shift and no loss are asked for, Y ions without losses.
    ///
    /// A loss that a rule names and a group has as well comes once, under the rule's name.
    ///
    /// Gives a refusal where open groups make more than 16 variants of one ion or 256 of the ions
    /// of an end, where losses make more than 1,000 combinations or glycans as many ions, and for
    /// charges beyond 10,000 or shifts beyond 127 hydrogens; then there are no ions.
    [[nodiscard]] std::optional<Error> assign(const Backbone& backbone, const IonOptions& options);

    /// The m/z of the ions, run by run, in daltons, monoisotopic.
    std::span<const double> mz() const { return {m_mz.data(), m_size}; }
    /// The runs of the ions. The view is good until the next assign().
    IonRuns runs() const { return IonRuns(*this); }
    /// The losses that runs refer to, as texts such as "-H2O" or, of glycans, "-[HexNAcHex2]"; the
    /// first is empty.
    std::span<const QString> losses() const { return m_losses; }

    /// The run of the ion at this index, and which ion of the run it is.
    std::pair<qsizetype, qsizetype> runOf(qsizetype ion) const;

    /// The label of an ion as PSI's mzPAF writes it: "b5", "y7-H2O^2", "IK", "m3:6", "p^2", and
    /// chains by number where there are several ("2:b5"). Y ions are precursors less what is lost
    /// ("p-[HexNAcHex2]"), oxonium and reporter ions have their names ("r[TMT127N]"). Peptide
    /// series and oligonucleotide series have one form; dotted series are written with their
    /// hydrogen ("z5+H"). A unit without a letter is X. Groups tell apart what differs by them:
    /// immonium ions name what they bear ("IM[Oxidation]"), ions with open groups those that they
    /// could be without ("b3+[Phospho]"), precursors the labile groups that they have lost
    /// ("p-[Hex]"); a group without a name has its mass there. Empty for an index outside the list
    /// and for another backbone that lacks the ion's chain or unit.
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
    friend class IonRuns;
    friend class IonWriter;

    std::vector<double> m_mz;   ///< With what an earlier, longer list has left behind its end.
    std::size_t m_size = 0;     ///< How many ions there are.
    std::vector<IonRun> m_runs; ///< None where each kind of the plan has one, equally long.
    std::vector<QString> m_losses;
    std::shared_ptr<const IonPlan> m_plan; ///< Of these ions; the next may need the same.
    bool m_isUniform = false;              ///< Whether each kind of the plan has one run.
};

/// @}

} // namespace ions
