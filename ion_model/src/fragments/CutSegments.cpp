#include "fragments/CutSegments.h"

#include <algorithm>

namespace ions {

namespace {

/// The parts of a molecule with one cut: every other chain, and the two sides of the chain that is
/// cut. The chain's own index stands for its left side, one behind the last chain for the right.
class CutMolecule
{
public:
    CutMolecule(const Backbone& backbone, qsizetype chain, qsizetype cut)
        : m_backbone(backbone)
        , m_chain(chain)
        , m_cut(cut)
    {
    }

    qsizetype leftSide() const { return m_chain; }
    qsizetype rightSide() const { return std::ssize(m_backbone.chains()); }

    /// For each part whether it hangs together with `start`.
    std::vector<bool> partsWith(qsizetype start) const
    {
        std::vector<bool> isReached(std::size_t(rightSide()) + 1);
        isReached[std::size_t(start)] = true;
        std::vector<qsizetype> open = {start};
        while (!open.empty()) {
            const qsizetype part = open.back();
            open.pop_back();
            for (const BackboneLink& link : m_backbone.links()) {
                const qsizetype first = partOf(link.firstChain, link.firstUnit);
                const qsizetype second = partOf(link.secondChain, link.secondUnit);
                const qsizetype other = first == part ? second : second == part ? first : part;
                if (!isReached[std::size_t(other)]) {
                    isReached[std::size_t(other)] = true;
                    open.push_back(other);
                }
            }
        }
        return isReached;
    }

    CutSide side(const std::vector<bool>& parts) const
    {
        CutSide side;
        for (qsizetype chain = 0; chain < rightSide(); ++chain) {
            if (chain != m_chain && parts[std::size_t(chain)]) {
                side.mass += m_backbone.chainMasses(chain).monoisotopic - labileMass(chain);
                side.chains.push_back(chain);
            }
        }
        qsizetype index = 0;
        for (const BackboneLink& link : m_backbone.links()) {
            if (parts[std::size_t(partOf(link.firstChain, link.firstUnit))]) {
                side.mass += link.masses.monoisotopic;
                side.links.push_back(index);
            }
            ++index;
        }
        return side;
    }

private:
    /// Groups that fall off before any chain breaks are in no ion but the precursor.
    double labileMass(qsizetype chain) const
    {
        double sum = 0.0;
        for (const BackboneGroup& group : m_backbone.chains()[std::size_t(chain)].labile)
            sum += group.masses.monoisotopic;
        return sum;
    }

    qsizetype partOf(qsizetype chain, qsizetype unit) const
    {
        return chain != m_chain || unit < m_cut ? chain : rightSide();
    }

    const Backbone& m_backbone;
    qsizetype m_chain;
    qsizetype m_cut;
};

/// The first cuts of all segments: a link's unit goes over to the left side at the cut behind it.
std::vector<qsizetype> firstCuts(const Backbone& backbone, qsizetype chain)
{
    const qsizetype size = std::ssize(backbone.chains()[std::size_t(chain)].units);
    std::vector<qsizetype> cuts = {1};
    for (const BackboneLink& link : backbone.links()) {
        if (link.firstChain == chain)
            cuts.push_back(link.firstUnit + 1);
        if (link.secondChain == chain)
            cuts.push_back(link.secondUnit + 1);
    }
    std::sort(cuts.begin(), cuts.end());
    cuts.erase(std::unique(cuts.begin(), cuts.end()), cuts.end());
    while (!cuts.empty() && cuts.back() >= size)
        cuts.pop_back();
    return cuts;
}

} // namespace

std::vector<CutSegment> cutSegments(const Backbone& backbone, qsizetype chain)
{
    const qsizetype size = std::ssize(backbone.chains()[std::size_t(chain)].units);
    const std::vector<qsizetype> cuts = firstCuts(backbone, chain);
    std::vector<CutSegment> segments;
    for (std::size_t i = 0; i < cuts.size(); ++i) {
        const CutMolecule molecule(backbone, chain, cuts[i]);
        const std::vector<bool> left = molecule.partsWith(molecule.leftSide());
        if (left[std::size_t(molecule.rightSide())])
            continue;
        const std::vector<bool> right = molecule.partsWith(molecule.rightSide());
        const qsizetype lastCut = i + 1 < cuts.size() ? cuts[i + 1] - 1 : size - 1;
        segments.push_back({cuts[i], lastCut, molecule.side(left), molecule.side(right)});
    }
    return segments;
}

bool isLinked(const Backbone& backbone, qsizetype chain, qsizetype unit)
{
    const auto links = backbone.links();
    return std::any_of(links.begin(), links.end(), [&](const BackboneLink& link) {
        return (link.firstChain == chain && link.firstUnit == unit) ||
               (link.secondChain == chain && link.secondUnit == unit);
    });
}

qsizetype internalEnd(const Backbone& backbone, qsizetype chain, qsizetype start)
{
    const qsizetype last = std::ssize(backbone.chains()[std::size_t(chain)].units) - 1;
    qsizetype end = start;
    while (end < last && !isLinked(backbone, chain, end))
        ++end;
    return end;
}

} // namespace ions
