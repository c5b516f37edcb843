#pragma once

#include "AtomMasses.h"
#include "Parsed.h"
#include "ResidueTable.h"
#include <zel_ion_model/IonModelExport.h>

#include <QString>
#include <QStringList>
#include <QStringView>

#include <array>
#include <limits>
#include <memory>
#include <span>
#include <vector>

/// \file
/// What enzymes and chemicals cut a protein or an RNA into. Masses are neutral and in daltons;
/// places count the characters of a text from 0.
///
/// \code
/// const ResidueTable residues;
/// const Protease trypsin = Protease::named(u"Trypsin"_s).value();
/// Digest digest;
/// digest.cleave(u"MAKPRGKLR", trypsin, residues, {.missedCleavages = 1});
/// digest.size();             // 5: MAKPR, MAKPRGK, GK, GKLR, LR
/// digest.ends()[1];          // 7
/// digest.monoisotopic()[4];  // 287.195740
/// \endcode

namespace ions {

/// \addtogroup ion_digests
/// @{

/// Something that cuts chains at places that a regular expression describes. A value that is
/// copied at no cost; every function may be called from any number of threads.
class ZEL_ION_MODEL_EXPORT CleavageAgent
{
public:
    /// What it is called.
    const QString& name() const;
    /// Its number in the PSI-MS vocabulary, such as "MS:1001251"; empty if it has none.
    const QString& accession() const;
    /// The expression that matches at its cuts; empty if it cuts nowhere or anywhere.
    const QString& expression() const;

    /// Tells whether it cuts at no place in particular, so that every range of a chain is a
    /// product: "unspecific cleavage".
    bool isUnspecific() const;

    /// Tells whether the expression compiled to classes of letters, which find the cuts of any text
    /// in about a nanosecond a letter. It does if it is made of look-behinds and look-aheads, plain
    /// or negated, of one or two letters or classes of letters each, such as `(?<=[KR])(?!P)`.
    bool isCompiled() const;

    /// Replaces `cuts` by the places that the agent cuts in `text`, ascending: a cut at 3 is
    /// between the third and the fourth character. There is none before the first character and
    /// none behind the last. Letters stand for themselves: case counts, a character that is no
    /// letter is one that no class names, and a character outside the basic plane is two of them.
    ///
    /// Gives false, with no cuts, if the engine of an expression that did not compile gives up on
    /// this text. Linear in the text for those that compiled.
    [[nodiscard]] bool findCuts(QStringView text, std::vector<qsizetype>* cuts) const;

protected:
    struct Content;

    /// What findCuts() follows, as a derived class has read it.
    explicit CleavageAgent(std::shared_ptr<const Content> content);

private:
    std::shared_ptr<const Content> m_content;
};

/// What cuts proteins: an enzyme or a chemical.
class ZEL_ION_MODEL_EXPORT Protease : public CleavageAgent
{
public:
    /// The agent with this name or accession in the PSI-MS vocabulary (4.1.257), whatever its case:
    /// "Trypsin", "lys-c/p", "CNBr", "MS:1001251". "no cleavage" cuts nowhere, and "unspecific
    /// cleavage" makes every range a product. Refused is any other text, with the names that are
    /// spelled most like it.
    static Parsed<Protease> named(QStringView text);

    /// An agent of one's own. The expression is one of QRegularExpression; a cut is where a match
    /// ends, so that it is best made of look-behinds and look-aheads, see isCompiled(); the empty
    /// expression cuts everywhere. Refused, with its place, is what is no regular expression.
    static Parsed<Protease> fromExpression(const QString& expression, const QString& name = {});

    /// The names of the vocabulary, in the order of their accessions.
    static QStringList names();

private:
    using CleavageAgent::CleavageAgent;
};

/// An enzyme that cuts RNA. The left product of a cut bears the phosphate.
class ZEL_ION_MODEL_EXPORT Ribonuclease : public CleavageAgent
{
public:
    /// RNase T1 (behind G), RNase A (behind C and U), RNase U2 (behind A and G; it prefers A, for
    /// which fromExpression() with `(?<=A)` stands), cusativin (behind C, not between C and C) or
    /// MC1 (in front of U, not behind G). Case does not count, and "RNase " may be left out or put
    /// in front of each. Refused is any other text.
    static Parsed<Ribonuclease> named(QStringView text);

    /// An enzyme of one's own, as Protease::fromExpression().
    static Parsed<Ribonuclease> fromExpression(const QString& expression, const QString& name = {});

    /// The names that named() knows.
    static QStringList names();

private:
    using CleavageAgent::CleavageAgent;
};

/// What the nucleotides of an RNA weigh by the letters of their bases: base, ribose and a
/// phosphodiester linkage. A letter is one of the factory's bases with a code of one character.
///
/// **Oligonucleotide text is another notation**, see NucleotideTable: there `A` is DNA, `rA` RNA.
///
/// Every const function may be called from any number of threads.
class ZEL_ION_MODEL_EXPORT RnaTable
{
public:
    /// Takes the parts from `residues`, which is not needed afterwards.
    explicit RnaTable(const ResidueTable& residues);

    /// The masses of the characters 0 to 127; both are NaN where there is no such base. No other
    /// character has a mass. Valid as long as this object lives.
    std::span<const Masses, 128> letterMasses() const { return m_letters; }
    /// HPO3: what a linkage weighs.
    const Masses& linkage() const { return m_linkage; }
    /// H2O, which the two ends make.
    const Masses& water() const { return m_water; }

private:
    std::array<Masses, 128> m_letters;
    Masses m_linkage;
    Masses m_water;
};

/// What the 3' ends that a ribonuclease makes bear.
enum class ThreePrimeEnd {
    Phosphate,      ///< A 3'-phosphate.
    CyclicPhosphate ///< A 2',3'-cyclic phosphate, one water less.
};

/// Which products a digest lists.
struct DigestOptions
{
    int missedCleavages = 0; ///< At most so many cuts inside a product; below 0 counts as 0.
    qsizetype minLength = 1; ///< In characters.
    qsizetype maxLength = std::numeric_limits<qsizetype>::max(); ///< In characters.
    /// The least monoisotopic mass in daltons. Mass limits leave products with an unknown letter
    /// in.
    double minMass = -std::numeric_limits<double>::infinity();
    double maxMass = std::numeric_limits<double>::infinity(); ///< The largest one.
    /// Whether one end of a product may be anywhere. Missed cleavages are then the cuts inside it.
    bool isSemiSpecific = false;
};

/// The products of a digest, as arrays of the same length: no object for each. Ordered by start,
/// then by end, each range once.
///
/// A character without a mass (B, X, Z, `*`, a lower-case or non-ASCII letter, a blank ...) stops
/// nothing: its place is reported, and the products that hold it are listed with masses that are
/// NaN.
///
/// One object serves for many texts: each cleave() replaces what it held, and once its arrays are
/// large enough nothing is allocated. Const functions may be called from any number of threads,
/// cleave() needs the object for itself.
class ZEL_ION_MODEL_EXPORT Digest
{
public:
    /// Lists the peptides of a protein. A peptide weighs its residues and one water, good to 10^-9
    /// Da also where it is as long as titin.
    ///
    /// The time is linear in the text plus the products within the limits of length and missed
    /// cleavages, for agents that compiled; mass limits save none. Gives false and lists nothing if
    /// CleavageAgent::findCuts() does.
    bool cleave(QStringView protein, const Protease& protease, const ResidueTable& residues,
                const DigestOptions& options = {});

    /// Lists the products of an RNA, a plain letter for each nucleotide, whose own ends are 5'-OH
    /// and 3'-OH. A product that reaches the end of the text keeps its 3'-OH; every other one ends
    /// as `end` says.
    bool cleave(QStringView rna, const Ribonuclease& ribonuclease, const RnaTable& nucleotides,
                ThreePrimeEnd end, const DigestOptions& options = {});

    /// How many products there are.
    std::size_t size() const { return m_size; }
    /// Where each product starts.
    std::span<const qsizetype> starts() const { return listed(m_starts); }
    /// Where each product ends: the place behind its last character.
    std::span<const qsizetype> ends() const { return listed(m_ends); }
    /// How many cuts are inside each product; 0 throughout if the agent is unspecific.
    std::span<const int> missedCleavages() const { return listed(m_missedCleavages); }
    /// The monoisotopic masses.
    std::span<const double> monoisotopic() const { return listed(m_monoisotopic); }
    /// The average masses.
    std::span<const double> average() const { return listed(m_average); }

    /// The places of all characters without a mass, ascending, also of those in no product.
    std::span<const qsizetype> unknownLetters() const { return m_unknownLetters; }

private:
    /// What products weigh beside their letters.
    struct EndMasses
    {
        Masses atCut;
        Masses atEnd;
    };
    class Lister;

    template <typename T>
    std::span<const T> listed(const std::vector<T>& values) const
    {
        return std::span(values).first(m_size);
    }

    bool cleave(QStringView text, const CleavageAgent& agent, std::span<const Masses, 128> letters,
                const EndMasses& ends, const DigestOptions& options);
    void addUp(QStringView text, std::span<const Masses, 128> letters);
    void addUpKnown(QStringView text, std::span<const Masses, 128> letters);

    std::vector<qsizetype> m_starts; ///< This and the next four: m_size products, then room.
    std::vector<qsizetype> m_ends;
    std::vector<int> m_missedCleavages;
    std::vector<double> m_monoisotopic;
    std::vector<double> m_average;
    std::size_t m_size = 0;
    std::vector<qsizetype> m_unknownLetters;
    std::vector<qsizetype> m_cuts; ///< Both ends of the text and the cuts between them.
    /// Of all letters in front of each place of the text, then room: differences of these are as
    /// good as sums of their own.
    std::vector<MassSum> m_sums;
};

/// @}

} // namespace ions
