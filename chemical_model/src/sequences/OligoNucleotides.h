#pragma once

#include "LinearComplex.h"
#include "sequences/LetterTable.h"
#include "sequences/OligoGrammar.h"
#include "sequences/OligoSites.h"

#include <vector>

namespace chem {

struct OligoUnit;

/// Whether a number, a bare mass, stands in place of the base.
bool isNumber(const Nucleotide& nucleotide);

/// Makes the nucleotides and terminals that oligonucleotide text names.
///
/// A nucleotide costs some formula arithmetic, so those that the dictionaries can spell are made
/// beforehand: sugar, base and at most one mark. Not where a dictionary is so large that few of
/// them would ever be read.
class OligoNucleotides
{
public:
    /// A nucleotide and its breaks, ready to be copied.
    struct Prepared
    {
        Nucleotide nucleotide;
        const NucleotideBreaks* breaks;
    };

    OligoNucleotides(const OligoBlocks& blocks, const OligoSites& sites);
    Q_DISABLE_COPY_MOVE(OligoNucleotides)

    /// Makes the nucleotide of one unit. A number has neither a default sugar nor a default
    /// linkage, and a last nucleotide keeps only a linkage that was written.
    Nucleotide make(const OligoUnit& unit, bool isLast) const;

    /// The same nucleotide, if it is prepared; null for a number, for several marks, and for
    /// letters without an entry. The result lives as long as this object.
    const Prepared* find(const OligoUnit& unit, bool isLast) const;

    /// The terminals by their marks; those that the dictionary lacks have no mass.
    const LetterTable& fivePrimeTerminals() const { return m_fivePrimeTerminals; }
    const LetterTable& threePrimeTerminals() const { return m_threePrimeTerminals; } ///< Likewise.

private:
    void prepare(const OligoSites& sites);
    void prepareLinkages(std::size_t ribose, std::size_t base, const OligoSites& sites);
    std::size_t placeOf(std::size_t ribose, std::size_t base, std::size_t linkage) const;
    NamedMolecule linkageOf(QStringView marks) const;

    LetterTable m_riboses;
    LetterTable m_nucleobases;
    LetterTable m_phosphates;
    LetterTable m_fivePrimeTerminals;
    LetterTable m_threePrimeTerminals;
    NamedMolecule m_defaultRibose;
    NamedMolecule m_defaultPhosphate;
    std::size_t m_linkages; ///< One for each mark, the default and none.
    std::vector<NucleotideBreaks> m_breaks;
    std::vector<Prepared> m_prepared; ///< By ribose, base and linkage; empty if too many.
};

} // namespace chem
