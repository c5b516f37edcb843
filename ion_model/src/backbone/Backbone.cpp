#include "Backbone.h"

#include "backbone/ChainEnds.h"

#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;

namespace ions {

namespace {

constexpr std::size_t mostChains = 255;
constexpr std::size_t mostLinks = 1000;

bool isUnitOf(std::span<const BackboneChain> chains, qsizetype chain, qsizetype unit)
{
    return chain >= 0 && chain < std::ssize(chains) && unit >= 0 &&
           unit < std::ssize(chains[std::size_t(chain)].units);
}

/// Whether each entry stands at a unit of a chain of this size, behind that of the one before.
bool isAscending(const BackboneCompositions::Listed& listed, qsizetype size)
{
    qsizetype last = -1;
    for (const auto& [unit, composition] : listed) {
        if (unit <= last || unit >= size)
            return false;
        last = unit;
    }
    return true;
}

/// What is wrong with the lists of a chain.
std::optional<Error> refusalOf(const BackboneChain& chain, qsizetype index)
{
    const std::size_t size = chain.units.size();
    const std::size_t parts = chain.polymer == Polymer::Oligonucleotide ? size : 0;
    if (size == 0 || chain.bases.size() != parts || chain.linkages.size() != parts ||
        std::size_t(chain.letters.size()) != size) {
        return Error{u"expected units, and as many letters, bases and linkages"_s, -1, index};
    }
    const auto isThere = [size](qsizetype unit) {
        return unit >= 0 && unit < qsizetype(size);
    };
    for (const OpenGroup& open : chain.open) {
        const bool isSound = !open.units.empty() &&
                             std::is_sorted(open.units.begin(), open.units.end()) &&
                             std::all_of(open.units.begin(), open.units.end(), isThere);
        if (!isSound)
            return Error{u"expected an open group at ascending units of its chain"_s, -1, index};
    }
    for (const PlacedGroup& group : chain.groups) {
        if (!isThere(group.unit))
            return Error{u"expected a group at a unit of its chain"_s, -1, index, group.unit};
    }
    const BackboneCompositions& known = chain.compositions;
    for (const auto* listed : {&known.units, &known.bases, &known.linkages}) {
        if (!isAscending(*listed, qsizetype(size)))
            return Error{u"expected compositions at ascending units of their chain"_s, -1, index};
    }
    return {};
}

/// Writes what stands left of each unit, then all of them; gives the place behind.
double* writeSums(const BackboneChain& chain, const BreakMasses& breaks, double* next)
{
    MassSum sum{chainEnds(chain, breaks).left, {}};
    *next++ = sum.value().monoisotopic;
    for (std::size_t i = 0; i < chain.units.size(); ++i) {
        if (i > 0 && !chain.linkages.empty())
            sum.add(chain.linkages[i - 1]);
        sum.add(chain.units[i]);
        *next++ = sum.value().monoisotopic;
    }
    return next;
}

} // namespace

void BackboneCompositions::clear()
{
    units.clear();
    bases.clear();
    linkages.clear();
    leftGroup = {};
    rightGroup = {};
}

Parsed<Backbone> Backbone::peptide(QStringView sequence, const ResidueTable& residues)
{
    Backbone backbone;
    if (auto error = backbone.assignPeptide(sequence, residues))
        return *std::move(error);
    return backbone;
}

std::optional<Error> Backbone::assignPeptide(QStringView sequence, const ResidueTable& residues)
{
    BackboneChain& chain = becomeChain(Polymer::Peptide, residues.breaks());
    chain.letters.resize(sequence.size());
    chain.units.resize(std::size_t(sequence.size()));
    QChar* const letters = chain.letters.data();
    double sum = 0.0;
    double* next = roomForSums(chain.units.size() + 1);
    *next++ = sum;
    for (qsizetype i = 0; i < sequence.size(); ++i) {
        letters[i] = sequence[i];
        const Masses masses = residues.residue(sequence[i].unicode());
        chain.units[std::size_t(i)] = masses;
        *next++ = sum += masses.monoisotopic;
    }
    if (!std::isnan(sum) && !sequence.isEmpty()) {
        if (sequence.size() > mostPlainMasses)
            sumUp();
        return {};
    }
    m_chains.clear();
    return residues.unknownLetter(sequence);
}

/// Becomes one chain in the memory of the first chain before; units and letters are left over from
/// it.
BackboneChain& Backbone::becomeChain(Polymer polymer, const BreakMasses& breaks)
{
    m_chains.resize(1);
    m_links.clear();
    m_breaks = breaks;
    BackboneChain& chain = m_chains.front();
    chain.polymer = polymer;
    chain.hasLeftEnd = chain.hasRightEnd = true;
    chain.leftGroup = chain.rightGroup = {};
    chain.bases.clear();
    chain.linkages.clear();
    chain.groups.clear();
    chain.open.clear();
    chain.labile.clear();
    chain.compositions.clear();
    return chain;
}

double* Backbone::roomForSums(std::size_t size)
{
    if (m_sums.size() < size)
        m_sums.resize(size);
    return m_sums.data();
}

/// Sums up all chains, so that ions take one addition each.
void Backbone::sumUp()
{
    std::size_t size = 0;
    for (const BackboneChain& chain : m_chains)
        size += chain.units.size() + 1;
    double* next = roomForSums(size);
    for (const BackboneChain& chain : m_chains)
        next = writeSums(chain, m_breaks, next);
}

Parsed<Backbone> Backbone::ofChains(std::vector<BackboneChain> chains,
                                    std::vector<BackboneLink> links, const BreakMasses& breaks)
{
    if (chains.size() > mostChains)
        return Error{u"expected at most 255 chains"_s, -1, qsizetype(mostChains)};
    if (links.size() > mostLinks)
        return Error{u"expected at most 1000 links"_s};
    for (std::size_t i = 0; i < chains.size(); ++i) {
        if (auto error = refusalOf(chains[i], qsizetype(i)))
            return *std::move(error);
    }
    for (const BackboneLink& link : links) {
        if (!isUnitOf(chains, link.firstChain, link.firstUnit))
            return Error{u"expected a link between units"_s, -1, link.firstChain, link.firstUnit};
        if (!isUnitOf(chains, link.secondChain, link.secondUnit))
            return Error{u"expected a link between units"_s, -1, link.secondChain, link.secondUnit};
    }
    Backbone backbone;
    backbone.m_chains = std::move(chains);
    backbone.m_links = std::move(links);
    backbone.m_breaks = breaks;
    backbone.sumUp();
    return backbone;
}

Masses Backbone::chainMasses(qsizetype index) const
{
    const BackboneChain& chain = m_chains[std::size_t(index)];
    const ChainEnds ends = chainEnds(chain, m_breaks);
    MassSum sum{m_breaks.water + ends.left + ends.right, {}};
    for (const Masses& unit : chain.units)
        sum.add(unit);
    for (const Masses& linkage : chain.linkages)
        sum.add(linkage);
    for (const OpenGroup& open : chain.open)
        sum.add(open.group.masses);
    for (const BackboneGroup& group : chain.labile)
        sum.add(group.masses);
    return sum.value();
}

Masses Backbone::masses() const
{
    MassSum sum;
    for (qsizetype i = 0; i < std::ssize(m_chains); ++i)
        sum.add(chainMasses(i));
    for (const BackboneLink& link : m_links)
        sum.add(link.masses);
    return sum.value();
}

} // namespace ions
