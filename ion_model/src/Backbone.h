#pragma once

#include "AtomMasses.h"
#include "Composition.h"
#include "NucleotideTable.h"
#include "Parsed.h"
#include "ResidueTable.h"
#include <zel_chemical_model/ChemicalFactory.h>
#include <zel_chemical_model/MoleculeEntity.h>
#include <zel_ion_model/IonModelExport.h>

#include <QString>
#include <QStringView>

#include <optional>
#include <span>
#include <vector>

namespace ions {

/// \addtogroup ion_fragments
/// @{

/// What a chain is, which decides how it breaks.
enum class Polymer {
    Peptide,        ///< Breaks into a, b, c and x, y, z ions.
    Oligonucleotide ///< Breaks into a, a-B, b, c, d and w, x, y, z ions.
};

/// A neutral molecule that an ion may lose.
struct NeutralLoss
{
    QString name;  ///< As it stands in labels: "H2O".
    Masses masses; ///< In daltons.

    /// Compares both.
    friend bool operator==(const NeutralLoss&, const NeutralLoss&) = default;
};

/// Monosaccharides of one kind in a glycan.
struct BackboneSugar
{
    QString name;            ///< As glycan text has it: "HexNAc".
    Masses masses;           ///< Of one residue, in daltons.
    Composition composition; ///< Of one residue.
    int count = 1;           ///< How many there are.
};

/// An ion of one charge that a label gives alone, whatever it sits on.
struct ReporterIon
{
    QString name;            ///< As labels have it: "TMT127N".
    Masses masses;           ///< Less a proton, in daltons.
    Composition composition; ///< Less a proton.
};

/// A group that a molecule bears beside its residues.
struct BackboneGroup
{
    Masses masses;                           ///< In daltons.
    std::vector<NeutralLoss> losses;         ///< What ions that hold the group may lose of it.
    Composition composition = {};            ///< Empty where it is not known.
    std::vector<BackboneSugar> glycan = {};  ///< Its monosaccharides, if it is a glycan.
    std::vector<ReporterIon> reporters = {}; ///< Its reporter ions, if it is a label with such.
    QString name = {};                       ///< As labels have it: "Oxidation". Empty: its mass.
};

/// A group on a known unit, or on the end beside it. Its masses are part of theirs.
struct PlacedGroup
{
    qsizetype unit = 0;   ///< From 0.
    BackboneGroup group;  ///< What sits there.
    bool isOnEnd = false; ///< Whether the end bears it, not the unit.
};

/// A group that sits on one of several units, and nobody knows which.
struct OpenGroup
{
    BackboneGroup group;          ///< What sits there.
    std::vector<qsizetype> units; ///< Where it may sit, ascending, from 0.
    /// How many open groups of one mass may share a unit, on which no other open one sits then; 0
    /// if nothing is known to keep them apart.
    int limit = 0;
};

/// Compositions of parts of a chain that its letters do not tell, for who asks what an ion is made
/// of. Nothing else reads them. A unit, base or linkage that is not listed has the composition that
/// a table knows by its letter and masses.
struct ZEL_ION_MODEL_EXPORT BackboneCompositions
{
    using Listed = std::vector<std::pair<qsizetype, Composition>>; ///< Ascending by unit.

    Listed units;           ///< Of units with all that they bear.
    Listed bases;           ///< Oligonucleotides: of bases.
    Listed linkages;        ///< Oligonucleotides: of linkages.
    Composition leftGroup;  ///< Of what the left end bears beyond a hydrogen.
    Composition rightGroup; ///< Of what the right end bears beyond a hydroxyl.

    /// Forgets all of them.
    void clear();
};

/// One chain as an instrument breaks it: what its units weigh, in order, and what its ends bear.
///
/// A unit is a residue with its modifications: an amino acid, or a nucleoside, whose base and whose
/// linkage to the next one are known apart.
struct BackboneChain
{
    Polymer polymer = Polymer::Peptide; ///< How it breaks.
    std::vector<Masses> units;    ///< Residues with their modifications, linkages not included.
    std::vector<Masses> bases;    ///< Oligonucleotides: the base of each unit; else empty.
    std::vector<Masses> linkages; ///< Oligonucleotides: what follows each unit; else empty.
    QString letters;              ///< The letter of each unit, U+0000 where it has none.

    /// Whether the chain starts and ends in ends of its own. A piece of a chain may lack them, and
    /// then weighs that much less.
    bool hasLeftEnd = true;
    bool hasRightEnd = true; ///< Likewise on the right.
    Masses leftGroup;        ///< What the left end bears beyond a hydrogen.
    Masses rightGroup;       ///< What the right end bears beyond a hydroxyl.

    std::vector<PlacedGroup> groups;   ///< Those that break themselves or that labels name.
    std::vector<OpenGroup> open;       ///< Groups on one of several units.
    std::vector<BackboneGroup> labile; ///< Groups that fall off before the chain breaks.

    BackboneCompositions compositions; ///< What letters do not tell.
};

/// A bridge between two units, of one chain or of two.
struct BackboneLink
{
    qsizetype firstChain = 0;     ///< From 0.
    qsizetype firstUnit = 0;      ///< From 0, in its chain.
    qsizetype secondChain = 0;    ///< From 0.
    qsizetype secondUnit = 0;     ///< From 0, in its chain.
    Masses masses;                ///< What the bridge adds; often a loss.
    Composition composition = {}; ///< Empty where it is not known.
};

/// The one value that fragment ions are made of: chains, the links between them, and what breaking
/// them adds and takes. Peptides, oligonucleotides and molecules with many chains become one.
///
/// \code
/// const ResidueTable residues;
/// const Backbone peptide = Backbone::peptide(u"DRVYIHPF", residues).value();
/// peptide.masses().monoisotopic; // 1045.53451 Da
/// \endcode
///
/// A value: separate instances may be used from separate threads.
class ZEL_ION_MODEL_EXPORT Backbone
{
public:
    /// No chain.
    Backbone() = default;

    /// Lays out a peptide of unmodified residues. Refused at the first letter without a mass and
    /// for an empty text.
    static Parsed<Backbone> peptide(QStringView sequence, const ResidueTable& residues);

    /// The same into this object, whose memory is used again: a search allocates nothing. Gives the
    /// refusal, if there is one; then this object holds no chain.
    [[nodiscard]] std::optional<Error> assignPeptide(QStringView sequence,
                                                     const ResidueTable& residues);

    /// Lays out an oligonucleotide, in the notation of the first library. Refused as by
    /// NucleotideTable::oligonucleotide(), and at the first number in place of a base: it has no
    /// base to lose.
    static Parsed<Backbone> oligonucleotide(QStringView text, const NucleotideTable& nucleotides);

    /// The same by the dictionaries of `factory`, which are read anew each time.
    static Parsed<Backbone> oligonucleotide(QStringView text, const chem::ChemicalFactory& factory);

    /// The same into this object, whose memory is used again, as by assignPeptide().
    [[nodiscard]] std::optional<Error> assignOligonucleotide(QStringView text,
                                                             const NucleotideTable& nucleotides);

    /// Lays out a molecule of the first library: its chains of amino acids or nucleotides, however
    /// they were built, cut, modified and linked. `residues` is read from the factory that made it.
    ///
    /// A residue weighs what its entity weighs, modifications included; its letter is its code of
    /// one character. Ends are known by name, by a code of several characters, or by their type;
    /// pieces may lack them. A nucleotide is a sugar, a base and a linkage of the table's.
    /// A modification with several places becomes an open group, one without a place an open group
    /// on all units; groups and links at an end are at the unit next to it. The totals that the
    /// molecule stores are not read: its parts tell them.
    ///
    /// Refused, with chain and residue as the first library counts them, are molecules without
    /// chains, chains of anything else or without residues, residues without a mass, ends inside a
    /// chain, numbers in place of a base, and parts of nucleotides; open modifications and links on
    /// linkages, open modifications of several chains, and places that are not there or that count
    /// from before a cut; and what ofChains() refuses. Linear in the parts and the history's steps.
    static Parsed<Backbone> ofMolecule(const chem::MoleculeEntity& molecule,
                                       const ResidueTable& residues);

    /// Lays out one chain of the first library likewise.
    static Parsed<Backbone> ofChain(const chem::Chain& chain, const ResidueTable& residues);

    /// Joins chains, which break into groups of the given masses. Refused are chains whose lists
    /// differ in length, more than 255 chains or 1,000 links, and links, open groups and
    /// compositions at units that are not there or not in order, with chain and residue.
    static Parsed<Backbone> ofChains(std::vector<BackboneChain> chains,
                                     std::vector<BackboneLink> links, const BreakMasses& breaks);

    /// The chains in order.
    std::span<const BackboneChain> chains() const { return m_chains; }
    /// The links in the order given.
    std::span<const BackboneLink> links() const { return m_links; }
    /// What breaks add and take.
    const BreakMasses& breaks() const { return m_breaks; }

    /// The masses of one chain as it stands: units, linkages, ends, open and labile groups. Good to
    /// 10^-9 Da, as are those of ions. The chain has to be there.
    Masses chainMasses(qsizetype chain) const;
    /// The masses of the whole molecule: its chains and links.
    Masses masses() const;

private:
    friend class IonWriter;

    BackboneChain& becomeChain(Polymer polymer, const BreakMasses& breaks);
    static std::optional<Error>
    layOutByFactory(QStringView text, const NucleotideTable& nucleotides, BackboneChain* chain);
    double* roomForSums(std::size_t size);
    void sumUp();

    std::vector<BackboneChain> m_chains;
    std::vector<BackboneLink> m_links;
    BreakMasses m_breaks;
    /// What each chain comes to in front of each unit and behind the last, from its left end on;
    /// then room.
    std::vector<double> m_sums;
};

/// @}

} // namespace ions
