#include "Digest.h"

#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;

namespace ions {

namespace {

constexpr double none = std::numeric_limits<double>::quiet_NaN();

const Masses& massesOf(std::span<const Masses, 128> letters, char16_t letter)
{
    return letters[letter < letters.size() ? letter : 0];
}

Masses partMasses(const std::span<const MoleculePart>& parts, QStringView code)
{
    const auto part = std::find_if(parts.begin(), parts.end(),
                                   [code](const MoleculePart& p) { return p.code == code; });
    return part == parts.end() ? Masses{none, none} : part->masses;
}

} // namespace

RnaTable::RnaTable(const ResidueTable& residues)
    : m_linkage(partMasses(residues.linkages(), u"."))
    , m_water(residues.water())
{
    m_letters.fill({none, none});
    const Masses backbone = partMasses(residues.sugars(), u"r") + m_linkage;
    for (const MoleculePart& base : residues.bases()) {
        if (base.code.size() == 1 && base.code[0].unicode() < m_letters.size())
            m_letters[base.code[0].unicode()] = base.masses + backbone;
    }
}

/// Writes the products that the options let through behind each other.
class Digest::Lister
{
public:
    /// The last sum then holds what the end of the text weighs other than a cut.
    Lister(const DigestOptions& options, const EndMasses& ends, Digest& digest)
        : m_digest(digest)
        , m_atCut(ends.atCut)
        , m_missedCleavages(std::size_t(std::max(options.missedCleavages, 0)))
        , m_minLength(std::max<qsizetype>(options.minLength, 1))
        , m_maxLength(options.maxLength)
        , m_minMass(options.minMass)
        , m_maxMass(options.maxMass)
        , m_lastCut(digest.m_cuts.size() - 1)
    {
        digest.m_sums[std::size_t(cut(m_lastCut))].low += ends.atEnd - ends.atCut;
    }

    /// Products with a cut at both ends.
    void listBetweenCuts()
    {
        for (std::size_t first = 0; first < m_lastCut; ++first) {
            startAt(cut(first));
            listToCuts(first + 1, std::min(m_lastCut, first + 1 + m_missedCleavages));
        }
    }

    /// Products with a cut at one end or, of an agent that is unspecific, at none.
    void listWithOpenEnds(bool isUnspecific)
    {
        std::size_t next = 1; // The first cut behind the start.
        for (qsizetype start = 0; start < cut(m_lastCut); ++start) {
            next += std::size_t(cut(next) == start);
            startAt(start);
            const std::size_t lastEnd = std::min(m_lastCut, next + m_missedCleavages);
            if (isUnspecific || cut(next - 1) == start)
                listToAnyEnd(next, cut(lastEnd));
            else
                listToCuts(next, lastEnd);
        }
    }

private:
    qsizetype cut(std::size_t index) const { return m_digest.m_cuts[index]; }

    /// Begins with the products from `start`. Starts ascend, so that all steps of the two loops
    /// together are no more than cuts and unknown letters.
    void startAt(qsizetype start)
    {
        m_start = start;
        m_startSum = m_digest.m_sums[std::size_t(start)];
        m_startSum.low -= m_atCut;
        while (m_firstEnd <= m_lastCut && cut(m_firstEnd) - start < m_minLength)
            ++m_firstEnd;
        const auto& unknown = m_digest.m_unknownLetters;
        while (m_nextUnknown < unknown.size() && unknown[m_nextUnknown] < start)
            ++m_nextUnknown;
        m_knownEnd = m_nextUnknown < unknown.size() ? unknown[m_nextUnknown] : cut(m_lastCut);
    }

    /// Products that end at a cut up to the last one, where `next` is the first cut behind the
    /// start.
    void listToCuts(std::size_t next, std::size_t lastEnd)
    {
        if (m_firstEnd > lastEnd)
            return;
        std::size_t at = roomFor(lastEnd - m_firstEnd + 1);
        const MassSum start = m_startSum;
        for (std::size_t end = m_firstEnd; end <= lastEnd; ++end) {
            if (cut(end) - m_start > m_maxLength)
                break;
            at = list(start, cut(end), end - next, at);
        }
        m_digest.m_size = at;
    }

    void listToAnyEnd(std::size_t next, qsizetype lastEnd)
    {
        const qsizetype longest = std::min(m_maxLength, lastEnd - m_start);
        if (longest < m_minLength)
            return;
        std::size_t at = roomFor(std::size_t(longest - m_minLength) + 1);
        const MassSum start = m_startSum;
        std::size_t nextCut = m_firstEnd;
        for (qsizetype length = m_minLength; length <= longest; ++length) {
            const qsizetype end = m_start + length;
            at = list(start, end, nextCut - next, at);
            nextCut += std::size_t(cut(nextCut) == end);
        }
        m_digest.m_size = at;
    }

    /// Where the next product goes, with room for so many.
    std::size_t roomFor(std::size_t products)
    {
        const std::size_t needed = m_digest.m_size + products;
        if (needed > m_digest.m_starts.size())
            grow(std::max(needed, 2 * m_digest.m_starts.size()));
        return m_digest.m_size;
    }

    void grow(std::size_t room)
    {
        m_digest.m_starts.resize(room);
        m_digest.m_ends.resize(room);
        m_digest.m_missedCleavages.resize(room);
        m_digest.m_monoisotopic.resize(room);
        m_digest.m_average.resize(room);
    }

    /// Writes a product and gives the place of the next one: the same place if the mass is outside
    /// its limits, as one that is NaN never is.
    std::size_t list(const MassSum& start, qsizetype end, std::size_t missed, std::size_t at)
    {
        const MassSum& sum = m_digest.m_sums[std::size_t(end)];
        const Masses masses =
            end > m_knownEnd ? Masses{none, none} : (sum.high - start.high) + (sum.low - start.low);
        m_digest.m_starts[at] = m_start;
        m_digest.m_ends[at] = end;
        m_digest.m_missedCleavages[at] = int(missed);
        m_digest.m_monoisotopic[at] = masses.monoisotopic;
        m_digest.m_average[at] = masses.average;
        const bool isOutside = masses.monoisotopic < m_minMass || masses.monoisotopic > m_maxMass;
        return at + std::size_t(!isOutside);
    }

    Digest& m_digest;
    Masses m_atCut;
    std::size_t m_missedCleavages;
    qsizetype m_minLength;
    qsizetype m_maxLength;
    double m_minMass;
    double m_maxMass;
    std::size_t m_lastCut;
    qsizetype m_start = 0;         ///< Where the products at hand start.
    MassSum m_startSum;            ///< Up to there, less the end that a cut makes.
    qsizetype m_knownEnd = 0;      ///< Up to where they have a mass.
    std::size_t m_firstEnd = 1;    ///< The first cut that makes them long enough.
    std::size_t m_nextUnknown = 0; ///< The first unknown letter in none of those before.
};

bool Digest::cleave(QStringView protein, const Protease& protease, const ResidueTable& residues,
                    const DigestOptions& options)
{
    return cleave(protein, protease, residues.letterMasses(), {residues.water(), residues.water()},
                  options);
}

bool Digest::cleave(QStringView rna, const Ribonuclease& ribonuclease, const RnaTable& nucleotides,
                    ThreePrimeEnd end, const DigestOptions& options)
{
    const Masses& water = nucleotides.water();
    return cleave(
        rna, ribonuclease, nucleotides.letterMasses(),
        {end == ThreePrimeEnd::Phosphate ? water : Masses(), water - nucleotides.linkage()},
        options);
}

bool Digest::cleave(QStringView text, const CleavageAgent& agent,
                    std::span<const Masses, 128> letters, const EndMasses& ends,
                    const DigestOptions& options)
{
    m_size = 0;
    m_unknownLetters.clear();
    const bool areCutsKnown = agent.findCuts(text, &m_cuts);
    if (!areCutsKnown || text.isEmpty())
        return areCutsKnown;
    m_cuts.insert(m_cuts.begin(), 0);
    m_cuts.push_back(text.size());

    addUp(text, letters);
    Lister lister(options, ends, *this);
    if (options.isSemiSpecific || agent.isUnspecific())
        lister.listWithOpenEnds(agent.isUnspecific());
    else
        lister.listBetweenCuts();
    return true;
}

void Digest::addUp(QStringView text, std::span<const Masses, 128> letters)
{
    const auto length = std::size_t(text.size());
    if (m_sums.size() <= length)
        m_sums.resize(length + 1);
    // A loop without a branch; a letter without a mass is rare and shows in the end.
    MassSum sum;
    for (std::size_t place = 0; place < length; ++place) {
        m_sums[place] = sum;
        sum.add(massesOf(letters, text[qsizetype(place)].unicode()));
    }
    m_sums[length] = sum;
    if (std::isnan(sum.high.monoisotopic))
        addUpKnown(text, letters);
}

/// Leaves letters without a mass out of the sums, which are of no use for products that hold them.
void Digest::addUpKnown(QStringView text, std::span<const Masses, 128> letters)
{
    MassSum sum;
    for (qsizetype place = 0; place < text.size(); ++place) {
        const Masses& masses = massesOf(letters, text[place].unicode());
        if (std::isnan(masses.monoisotopic))
            m_unknownLetters.push_back(place);
        else
            sum.add(masses);
        m_sums[std::size_t(place) + 1] = sum;
    }
}

} // namespace ions
