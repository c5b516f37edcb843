#include "sequences/OligoComplex.h"

#include "core/MoleculeSum.h"
#include "sequences/ResidueList.h"

#include <algorithm>
#include <bit>
#include <deque>
#include <iterator>

namespace chem {

namespace {

/// Whether two molecules are copies of one: they share the formula and have masses of the same
/// bits.
bool isCopyOf(const Molecule& one, const Molecule& other)
{
    const auto bits = [](double mass) {
        return std::bit_cast<quint64>(mass);
    };
    return bits(one.averageMass()) == bits(other.averageMass()) &&
           bits(one.monoMass()) == bits(other.monoMass()) &&
           one.formula().elementCountMap().isSharedWith(other.formula().elementCountMap());
}

/// Makes breaks once for each base and phosphate that a chain repeats. For nucleotides that come
/// without prepared ones, such as those of a caller: without it, the benchmark
/// complexFromNucleotides takes twice the instructions.
class BreaksOfChain
{
public:
    explicit BreaksOfChain(const OligoSites& sites)
        : m_sites(sites)
    {
    }

    /// The breaks of a nucleotide. They stay valid until the call after the next one.
    const NucleotideBreaks& of(const PlacedNucleotide& placed)
    {
        if (placed.breaks)
            return *placed.breaks;
        const Nucleotide& nucleotide = *placed.nucleotide;
        // A chain of numbers has no end of different bases: only the latest are looked at.
        constexpr std::ptrdiff_t mostCompared = 16;
        const auto isAlike = [&nucleotide](const Known& known) {
            return isCopyOf(known.nucleotide->nucleobase, nucleotide.nucleobase) &&
                   isCopyOf(known.nucleotide->phosphate, nucleotide.phosphate);
        };
        const auto latest = m_known.crbegin();
        const auto end = latest + std::min(std::ssize(m_known), mostCompared);
        const auto known = std::find_if(latest, end, isAlike);
        if (known != end)
            return known->breaks;
        m_known.push_back(
            {&nucleotide, m_sites.breaksOf(nucleotide.nucleobase, nucleotide.phosphate)});
        // One more than are compared: the nucleotide before this one may have the oldest of them.
        if (std::ssize(m_known) > mostCompared + 1)
            m_known.pop_front();
        return m_known.back().breaks;
    }

private:
    struct Known
    {
        const Nucleotide* nucleotide;
        NucleotideBreaks breaks;
    };

    const OligoSites& m_sites;
    std::deque<Known> m_known;
};

} // namespace

QSharedPointer<MoleculeComplex> oligoComplex(std::span<const PlacedNucleotide> nucleotides,
                                             const NamedMolecule& fivePrime,
                                             const NamedMolecule& threePrime,
                                             const OligoSites& sites)
{
    const auto size = static_cast<qsizetype>(nucleotides.size());
    QList<QSharedPointer<ComplexResidue>> residues;
    QList<QList<QSharedPointer<FragmentationSite>>> siteLists;
    residues.reserve(size + 2);
    siteLists.reserve(size + 2);

    // Both ends come before the nucleotides, and all are added to the first end, whose negative
    // zeros stay: this order gives the total its bits. A peptide's starts from zero.
    MoleculeSum total(fivePrime);
    total.add(threePrime);
    appendResidue(fivePrime, &residues);
    siteLists.emplaceBack();
    BreaksOfChain breaksOfChain(sites);
    const NucleotideBreaks* previous = &sites.beforeFirst();
    for (const PlacedNucleotide& placed : nucleotides) {
        const NucleotideBreaks& breaks = breaksOfChain.of(placed);
        const bool isInner = &placed != &nucleotides.front() && &placed != &nucleotides.back();
        total.add(*placed.nucleotide);
        appendResidue(*placed.nucleotide, &residues);
        siteLists.append(sites.sitesAt(*previous, breaks, isInner));
        previous = &breaks;
    }
    appendResidue(threePrime, &residues);
    siteLists.emplaceBack();
    return QSharedPointer<MoleculeComplex>::create(total.result(), residues, siteLists);
}

} // namespace chem
