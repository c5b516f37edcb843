#pragma once

#include "AtomMasses.h"
#include "Composition.h"
#include "Parsed.h"
#include <zel_chemical_model/ChemicalFactory.h>
#include <zel_ion_model/IonModelExport.h>

#include <QString>
#include <QStringView>

#include <array>
#include <memory>
#include <span>
#include <vector>

namespace ions {

/// \addtogroup ion_tables
/// @{

/// A part that molecules are made of: a sugar, a base, a linkage, an end or a monosaccharide.
struct MoleculePart
{
    QString code;            ///< How text spells it.
    QString name;            ///< The readable name.
    Masses masses;           ///< In daltons.
    Composition composition; ///< Empty where the factory's entry has no whole counts.
};

/// Masses of the small groups that breaking a chain adds and takes, in the isotopes of the chain.
struct ZEL_ION_MODEL_EXPORT BreakMasses
{
    Masses hydrogen;       ///< H.
    Masses carbonMonoxide; ///< CO.
    Masses ammonia;        ///< NH3.
    Masses water;          ///< H2O.
    double proton = 0.0;   ///< What a charge adds: of natural hydrogen, whatever the chain has.

    /// Weighs the four by a table.
    static BreakMasses of(const AtomMasses& atoms);

    /// Compares all five.
    friend bool operator==(const BreakMasses&, const BreakMasses&) = default;
};

/// What residues weigh, read once from a factory and laid out for fast sums.
///
/// Amino acids are those of the factory's dictionary. Where this has no entry, selenocysteine (U)
/// and pyrrolysine (O) have fixed formulas and J is leucine, which isoleucine weighs as well. B, Z
/// and X stand for several residues and have no mass unless a caller defines them, in the factory
/// or by setResidue(). No other character has a mass, nor has an entry of the factory whose formula
/// holds an unknown element, or that has neither atoms nor mass.
///
/// \code
/// const ResidueTable residues;                             // natural isotopes
/// residues.peptide(u"DRVYIHPF")->monoisotopic;             // 1045.53451 Da
/// residues.peptide(u"DRVXIHPF").error().position;          // 3
/// \endcode
///
/// A value: copies share what was read until one of them is changed. Every const function may be
/// called from any number of threads.
class ZEL_ION_MODEL_EXPORT ResidueTable
{
public:
    /// Reads the default factory: natural isotopes, standard building blocks.
    ResidueTable();

    /// Reads `factory`, which is not needed afterwards.
    explicit ResidueTable(const chem::ChemicalFactory& factory);

    /// What atoms weigh in the same factory.
    const AtomMasses& atoms() const;

    /// The masses of an amino-acid residue; both are NaN for a character without mass.
    Masses residue(char16_t letter) const
    {
        return letter < letterCount ? m_letters[letter] : m_letters[0];
    }

    /// The same for the characters 0 to 127, as an array to sum over; no other character has a
    /// mass. Valid as long as this object or a copy lives and is not changed.
    std::span<const Masses, 128> letterMasses() const
    {
        return std::span<const Masses, 128>(m_letters, letterCount);
    }

    /// The composition of a residue; null for characters without mass and for entries whose counts
    /// are no whole numbers. Valid as long as this object or a copy lives and is not changed.
    const Composition* composition(char16_t letter) const;

    /// The atoms of a peptide: its residues and one water. Refused as by peptide(), and at the
    /// first residue without a composition. Counts that do not fit are refused without a place.
    Parsed<Composition> composition(QStringView sequence) const;

    /// The residues that an ambiguous letter stands for: "DN" for B, "EQ" for Z, "IL" for J, the
    /// standard twenty for X; the letter itself for any other with a mass, and for these four where
    /// a caller has defined them; else nothing.
    QString candidates(char16_t letter) const;

    /// The masses of a peptide: its residues and one water. Refused at the first character that has
    /// no mass. An empty text is water.
    ///
    /// Good to 10^-9 Da, however long the peptide is.
    Parsed<Masses> peptide(QStringView sequence) const
    {
        // An unknown letter makes the sum NaN: looking at each would cost more than the sum.
        Masses sum = m_letters[letterCount];
        for (const QChar letter : sequence)
            sum += residue(letter.unicode());
        if (sum.average == sum.average && sequence.size() <= mostPlainMasses) [[likely]]
            return sum;
        return protein(sequence);
    }

    /// H2O, which the two ends of a peptide or oligonucleotide make.
    const Masses& water() const;
    /// What breaking a chain adds and takes.
    const BreakMasses& breaks() const;

    /// The bases of nucleotides by their letters.
    std::span<const MoleculePart> bases() const;
    /// The sugars by the letters before a base.
    std::span<const MoleculePart> sugars() const;
    /// The linkages by the marks behind a base.
    std::span<const MoleculePart> linkages() const;
    /// The ends that chains of the factory may start with: those of text without marks, and the
    /// entries of its dictionaries of ends.
    std::span<const MoleculePart> leftEnds() const;
    /// The ends that they may end with.
    std::span<const MoleculePart> rightEnds() const;
    /// The monosaccharide residues, by the canonical names of the glycan notation.
    std::span<const MoleculePart> monosaccharides() const;
    /// The monosaccharide with this name, whose case counts; null if there is none.
    const MoleculePart* monosaccharide(QStringView name) const;

    /// Gives a letter a residue of its own, in place of the one that it may have: the heavy lysine
    /// `[13C]6H12[15N]2O` for K, or one that has no letter. B, J, X and Z may be defined as well.
    /// No other letter changes, J and L being two.
    ///
    /// Gives false and changes nothing for a character that is no ASCII letter, and for a
    /// composition that is empty or holds an atom that atoms() does not know. Copies that were
    /// taken before stay as they are. No other thread may use this object meanwhile.
    bool setResidue(char16_t letter, const Composition& composition);

private:
    friend class Backbone; // refuses the same letters
    static constexpr std::size_t letterCount = 128;
    struct Content;

    Parsed<Masses> protein(QStringView sequence) const;
    Error unknownLetter(QStringView sequence) const;

    std::shared_ptr<const Content> m_content;
    const Masses* m_letters; ///< In the content, with water behind: a sum follows one pointer.
};

/// @}

} // namespace ions
