#pragma once

#include "Backbone.h"
#include "Composition.h"
#include "ModificationTable.h"
#include "Parsed.h"
#include "ResidueTable.h"
#include <zel_chemical_model/MoleculeEntity.h>
#include <zel_ion_model/IonModelExport.h>

#include <QString>
#include <QStringView>

#include <optional>
#include <utility>
#include <vector>

/// \file
/// Peptidoforms as ProForma 2.1, the notation of the HUPO-PSI, writes them: peptides with all that
/// sits on them and all that is not known about it.
///
/// \code
/// const Peptidoform peptidoform = Peptidoform::read(u"em[unimod:0035]K/+2").value();
/// peptidoform.toString(); // "EM[UNIMOD:35]K/2"
/// \endcode
///
/// Everything here is a plain value. Where a part stood in the text is kept for messages and is no
/// part of the value: two peptidoforms are equal if they say the same, however they were spelled
/// where spelling does not count.

namespace ions {

/// \addtogroup ion_notation
/// @{

/// Where a part stood in the text that it was read from, for messages. All places are equal.
struct TextPosition
{
    qsizetype index = -1; ///< Of the QChar, from 0; -1 for what was built in code.

    /// Equal, wherever they are.
    friend constexpr bool operator==(TextPosition, TextPosition) { return true; }
};

/// Where each residue of a chain stood in the text. All are equal, as positions are.
class ZEL_ION_MODEL_EXPORT TextPositions
{
public:
    /// Forgets everything.
    void clear() { m_runs.clear(); }
    /// Notes that the residues from `residue` on stand together, the first at `index`.
    void addRun(qsizetype residue, qsizetype index) { m_runs.emplace_back(residue, index); }
    /// Where a residue stood; -1 if it was in no text.
    qsizetype of(qsizetype residue) const;

    /// Equal, wherever they are.
    friend bool operator==(const TextPositions&, const TextPositions&) { return true; }

private:
    std::vector<std::pair<qsizetype, qsizetype>> m_runs; ///< First residue and its place.
};

/// Atoms that may bear charges: `Zn:z+2`.
struct ChargedFormula
{
    Composition composition; ///< The atoms.
    int charge = 0;          ///< With its sign; each charge is an electron less.

    /// Compares both.
    friend bool operator==(const ChargedFormula&, const ChargedFormula&) = default;
};

/// One kind of monosaccharide of a glycan and how many there are.
struct GlycanPart
{
    QString name;           ///< The canonical name, such as "HexNAc"; empty for a formula.
    ChargedFormula formula; ///< What stands in braces where there is no name.
    int count = 1;          ///< How many there are.

    /// Compares all three.
    friend bool operator==(const GlycanPart&, const GlycanPart&) = default;
};

/// What a tag is.
enum class TagKind {
    Name,      ///< The name of a modification: "Oxidation".
    Accession, ///< Its number in a vocabulary: "UNIMOD:35".
    Formula,   ///< Atoms: "Formula:C2H2O".
    Glycan,    ///< Monosaccharides: "Glycan:HexNAc2Hex3".
    Mass,      ///< A bare mass: "+15.995".
    Info       ///< A remark: "INFO:seen twice".
};

/// The vocabulary that a tag names.
enum class TagVocabulary {
    None,    ///< Not said.
    Unimod,  ///< "U:" and "UNIMOD:".
    PsiMod,  ///< "M:" and "MOD:".
    Resid,   ///< "R:" and "RESID:".
    Xlmod,   ///< "X:" and "XLMOD:".
    Gnome,   ///< "G:" and "GNO:".
    Observed ///< "Obs:", a mass that was measured.
};

/// One description of a modification. Reading looks nothing up: a name is whatever was written.
struct Tag
{
    TagKind kind = TagKind::Name;                   ///< What the text is.
    TagVocabulary vocabulary = TagVocabulary::None; ///< Whose name or accession it is.
    QString text;           ///< Name, accession or remark as written; a mass with sign and digits.
    ChargedFormula formula; ///< Of a formula.
    std::vector<GlycanPart> glycan; ///< Of a glycan: by the table's order, each kind once.
    TextPosition position;          ///< Where the tag starts.

    /// Compares what the tags say.
    friend bool operator==(const Tag&, const Tag&) = default;
};

/// What `#` names: modifications with one label belong together.
struct ModificationLabel
{
    /// How they belong together.
    enum Kind {
        None,      ///< No label.
        CrossLink, ///< `#XL1`: ends of one bridge.
        Branch,    ///< `#BRANCH`: a chain that branches off.
        Ambiguous  ///< `#g1`: places of which one bears the modification.
    };

    Kind kind = None; ///< What kind of label it is.
    QString name;     ///< Behind "#XL", or all of an ambiguous label. Case counts.
    QString score;    ///< The digits in parentheses; empty if there is none.

    /// Compares all three.
    friend bool operator==(const ModificationLabel&, const ModificationLabel&) = default;
};

/// A kind of place: residues of a letter, an end, or an end with this residue.
struct PlaceRule
{
    /// Which part of a chain.
    enum Terminal { Anywhere, NTerm, CTerm };

    Terminal terminal = Anywhere; ///< At which part of a chain.
    char16_t residue = 0;         ///< A capital letter; 0 for any, at ends only.

    /// Compares both.
    friend constexpr bool operator==(const PlaceRule&, const PlaceRule&) = default;
};

/// Where a modification of unknown position may sit.
struct PlacementRules
{
    std::vector<PlaceRule> positions; ///< `Position:`; none for any place.
    std::optional<int> limit;         ///< `Limit:`, how many may share a place; else one.
    bool isWithKnown = false;         ///< `CoMKP`, beside a modification of known position.
    bool isWithUnknown = false;       ///< `CoMUP`, beside one of unknown position.

    /// Compares all four.
    friend bool operator==(const PlacementRules&, const PlacementRules&) = default;
};

/// What one pair of brackets holds: descriptions of one modification, or the label of one that is
/// described elsewhere.
struct Modification
{
    std::vector<Tag> tags;   ///< Each says the same in another way; none where only a label stands.
    ModificationLabel label; ///< With what it belongs together.
    PlacementRules placement; ///< Where it may sit, if that is unknown.
    TextPosition position;    ///< Where the bracket opens.

    /// Compares what they say.
    friend bool operator==(const Modification&, const Modification&) = default;
};

/// A modification that sits on a residue.
struct ResidueModification
{
    qsizetype residue = 0;     ///< From 0.
    Modification modification; ///< What sits on it.

    /// Compares both.
    friend bool operator==(const ResidueModification&, const ResidueModification&) = default;
};

/// Modifications somewhere in a chain: `[Phospho]^2?`.
struct UnlocalisedModification
{
    Modification modification; ///< What is there.
    int count = 1;             ///< How many there are.

    /// Compares both.
    friend bool operator==(const UnlocalisedModification&,
                           const UnlocalisedModification&) = default;
};

/// A run of residues that share something.
struct ResidueRange
{
    /// What they share.
    enum Kind {
        Modified,      ///< `(ESFRMS)[+19.05]`: modifications on some of them.
        AmbiguousOrder ///< `(?DQ)`: nobody knows their order.
    };

    Kind kind = Modified;                    ///< What it is.
    qsizetype first = 0;                     ///< The first residue, from 0.
    qsizetype last = 0;                      ///< The last one, included.
    std::vector<Modification> modifications; ///< At least one if Modified, else none.

    /// Compares all four.
    friend bool operator==(const ResidueRange&, const ResidueRange&) = default;
};

/// One chain of a peptidoform ion.
struct PeptidoformChain
{
    QString name;                                     ///< `(>name)`.
    std::vector<UnlocalisedModification> unlocalised; ///< `[Phospho]?`
    std::vector<Modification> labile;                 ///< `{Glycan:Hex}`
    std::vector<Modification> leftEnd;                ///< `[Acetyl]-`, at most two.
    QString residues;                                 ///< Capital letters A to Z.
    std::vector<ResidueModification> modifications;   ///< By residue, then as written.
    std::vector<ResidueRange> ranges;                 ///< From the left; none touches another.
    std::vector<Modification> rightEnd;               ///< `-[Amidated]`, at most two.
    TextPositions positions;                          ///< Of the residues.

    /// Compares what they say.
    friend bool operator==(const PeptidoformChain&, const PeptidoformChain&) = default;
};

/// One kind of charge carrier: `Na:z+1^2`.
struct ChargeCarrier
{
    ChargedFormula formula; ///< Its atoms and charges.
    int count = 1;          ///< How many there are.
    TextPosition position;  ///< Where it starts.

    /// Compares formula and count.
    friend bool operator==(const ChargeCarrier&, const ChargeCarrier&) = default;
};

/// Chains that are one molecule: those of one ion, joined by `//`.
struct PeptidoformIon
{
    QString name;                         ///< `(>>name)`.
    std::vector<PeptidoformChain> chains; ///< At least one.
    std::optional<int> protons;           ///< `/2`; below zero they are taken away.
    std::vector<ChargeCarrier> carriers;  ///< `/[Na:z+1]`; none beside protons.

    /// Compares what they say.
    friend bool operator==(const PeptidoformIon&, const PeptidoformIon&) = default;
};

/// A modification of all places of some kinds: `<[Carbamidomethyl]@C>`.
struct FixedModification
{
    Modification modification;     ///< What sits on each of them.
    std::vector<PlaceRule> places; ///< As written.

    /// Compares both.
    friend bool operator==(const FixedModification&, const FixedModification&) = default;
};

/// What a peptidoform ion weighs.
struct PeptidoformWeight
{
    /// In daltons: the molecule with its labile parts, without charge carriers; where a formula on
    /// the molecule bears charges, less their electrons.
    Masses masses;
    /// Its atoms, or the part that has none: a bare mass.
    Parsed<Composition> composition = Composition();
    int charge = 0; ///< Of the carriers and of formulas on the molecule; 0 where none is said.
    Masses mz;      ///< Monoisotopic and average; both 0 where there is no charge.
};

/// What becomes of that which a molecule of the first library has no place for.
enum class Placeless {
    Refused, ///< The peptidoform is refused, with the reason.
    Dropped  ///< It is left out.
};

/// One or several peptidoform ions, with the rules that hold for all of them.
///
/// \code
/// const ResidueTable residues;
/// const ModificationTable table = ModificationTable::standard(residues.atoms());
/// const Peptidoform peptidoform = Peptidoform::read(u"EM[Oxidation]K/2").value();
/// peptidoform.weigh(0, residues, table)->mz.monoisotopic; // 212.0990
/// \endcode
///
/// A value. What is made of it refers neither to it nor to the tables. Every const function may be
/// called from any number of threads.
struct ZEL_ION_MODEL_EXPORT Peptidoform
{
    QString name;                         ///< `(>>>name)`.
    std::vector<Atom> isotopes;           ///< `<13C>`; sorted.
    std::vector<FixedModification> fixed; ///< Sorted by their text.
    std::vector<PeptidoformIon> ions;     ///< Those joined by `+`, at least one.

    /// Reads the notation to its last character. Keywords, residues and the names of vocabularies
    /// may have either case, elements not. Refused at the first character that cannot stand there,
    /// and for numbers that do not fit. Names and accessions are not looked up.
    ///
    /// Takes time in proportion to the text; nesting is counted, not followed.
    static Parsed<Peptidoform> read(QStringView text);

    /// The same into this object, whose memory is used again. Gives the refusal, if there is one;
    /// then this object holds no ion.
    [[nodiscard]] std::optional<Error> assign(QStringView text);

    /// The canonical text. It reads back to an equal peptidoform, if this one was read or is what
    /// the comments on the fields ask for.
    QString toString() const;

    /// Weighs one ion, counted from 0; refused if there is none. Refused, with chain, residue and
    /// place in the text, where a part has no mass: a name that no table has (the message lists the
    /// nearest), a residue that may be several, a label that nothing defines.
    ///
    /// Of the descriptions of a modification the first counts that has a mass, one that was
    /// measured last; a remark alone weighs nothing. X weighs nothing under a modification.
    /// Isotopes replace the atoms of residues, ends and modifications, not those of carriers. A
    /// fixed modification leaves alone what bears one for certain. More than 1,000 of them are
    /// refused, and such as meet on the same residues more than 100,000 times.
    Parsed<PeptidoformWeight> weigh(qsizetype ion, const ResidueTable& residues,
                                    const ModificationTable& modifications) const;

    /// Lays out one ion, counted from 0, for fragments: modifications of known place are parts of
    /// their units, the others open, labile ones apart, cross-links and branches are links. Refused
    /// as by weigh(), where the order of unequal residues is unknown, where an open modification
    /// finds no place, and for more than 1,000 of them.
    ///
    /// Charges on the molecule are balanced by protons, so that the charge of a fragment is that of
    /// all its carriers: zinc with two charges takes two protons away.
    Parsed<Backbone> backbone(qsizetype ion, const ResidueTable& residues,
                              const ModificationTable& modifications) const;

    /// One ion, counted from 0, as a molecule of the first library, of the same masses.
    /// Modifications are steps on their residue, those of a rule too; position 0 is the left end,
    /// the last one the right end. Those of unknown place are open modifications of the molecule:
    /// with the places that a label or `Position:` names, the described one first, and without any
    /// where the only chain may bear them anywhere. Bridges are links, from the described end to
    /// each other one, the first of which has the mass; chains joined by `//` are chains.
    ///
    /// What stands in the brackets is the name of the group, for a link what stands at its first
    /// end, with the other one as the code. The code of an open modification is its label where the
    /// description stands in front of the chain. Isotopes carry their mass and stand in formulas
    /// under keys such as `[13C]`, which only this library can weigh.
    ///
    /// A molecule has no place for labile parts, ranges, `(?...)`, scores, remarks, names, charges
    /// and further ions: these are refused or dropped. Dropped labile parts are no part of the
    /// masses, dropped charges leave the atoms of their formulas, and the modifications of dropped
    /// ranges stay open within them. Refused in any case are bridges that end in unknown places,
    /// open modifications without a place or more than 1,000 of them, and what weigh() refuses.
    /// Refusals name the place in the text and the chain where they have one.
    Parsed<chem::MoleculeEntity> molecule(qsizetype ion, const ResidueTable& residues,
                                          const ModificationTable& modifications,
                                          Placeless placeless = Placeless::Refused) const;

    /// The peptidoform of a molecule of peptide chains, as molecule() or a program makes it, after
    /// any steps. The name of a group is what its brackets hold if it reads as a modification that
    /// weighs the same. Else its composition tells: the modification of Unimod with these atoms,
    /// of several one that is no exchange of amino acids, then that with the lowest accession; for
    /// links a cross-linker before all others; a formula where there is none. A group of one mass
    /// without atoms is that mass, to 10^-9 Da. What a residue or an end weighs beside its letter
    /// and its groups is a modification likewise, as are the atoms that the end of a piece lacks;
    /// residues without a letter of their own are X under one. If all residues and ends are
    /// labelled alike, `<13C>` says so. Names of molecules and chains are no part of the result.
    ///
    /// Refused are what Backbone::ofMolecule() refuses, with chain and residue as the first library
    /// counts them, chains of nucleotides, more than two modifications of one end, and groups whose
    /// two masses are neither those of atoms nor equal. Atoms count if they weigh the stored masses
    /// within 10^-6 Da.
    static Parsed<Peptidoform> ofMolecule(const chem::MoleculeEntity& molecule,
                                          const ResidueTable& residues,
                                          const ModificationTable& modifications);

    /// Compares what they say.
    friend bool operator==(const Peptidoform&, const Peptidoform&) = default;
};

/// @}

} // namespace ions
