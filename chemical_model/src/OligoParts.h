#pragma once

#include "LetterTable.h"
#include "LinearComplex.h"
#include "OligoSites.h"

#include <array>
#include <atomic>

namespace chem {

struct OligoUnit;

/// Whether two molecules share one formula and have masses of the same bits. Unshared formulas
/// count as different, even with equal entries.
bool isSharedMolecule(const Molecule& one, const Molecule& other);

/// A nucleotide that many texts have, ready to be copied.
struct PreparedNucleotide
{
    quint64 key; ///< Its text and place, as a number.
    Nucleotide nucleotide;
    NucleotideBreaks breaks;
};

/// What an oligonucleotide is laid out from: building blocks by letter, and nucleotides by text.
///
/// Any number of threads may read nucleotides at once: the table of prepared ones only ever grows,
/// one atomic pointer at a time. Which of them are there changes the time that a text takes, never
/// the result.
class OligoParts
{
public:
    /// The dictionaries by letter, and what a nucleotide that names no sugar or linkage has.
    struct Blocks
    {
        LetterTable riboses;
        LetterTable nucleobases;
        LetterTable phosphates;
        LetterTable fivePrimeTerminals;
        LetterTable threePrimeTerminals;
        NamedMolecule defaultRibose;
        NamedMolecule defaultPhosphate;
    };

    OligoParts(Blocks blocks, const OligoSites::Pieces& pieces);
    ~OligoParts();
    Q_DISABLE_COPY_MOVE(OligoParts)

    const Blocks& blocks() const { return m_blocks; }
    const OligoSites& sites() const { return m_sites; }

    /// Makes the nucleotide of one unit. A number has neither a default sugar nor a default
    /// linkage, and a last nucleotide keeps only a linkage that was written.
    Nucleotide read(const OligoUnit& unit, bool isLast) const;

    /// The same nucleotide from the table, prepared now if it is new there. Null for a number, for
    /// more than one phosphate mark, for letters outside the 16-bit range, and where the table is
    /// full or another nucleotide takes the place at the same time. The result lives as long as
    /// this object.
    const PreparedNucleotide* prepared(const OligoUnit& unit, bool isLast) const;

    /// The prepared nucleotide that `nucleotide` was copied from; null if it is not there. Whatever
    /// became of other fields meanwhile, its base and its phosphate are still the same.
    const PreparedNucleotide* preparedFor(const Nucleotide& nucleotide) const;

private:
    using Slot = std::atomic<const PreparedNucleotide*>;

    Slot* slotFor(quint64 key) const;
    NamedMolecule readPhosphates(QStringView marks) const;

    static constexpr std::size_t slotBits = 9;
    static constexpr std::size_t slotCount = std::size_t(1) << slotBits;

    Blocks m_blocks;
    OligoSites m_sites;
    mutable std::array<Slot, slotCount> m_slots{};
};

} // namespace chem
