#include "proforma/ChainSites.h"

#include <algorithm>

namespace ions {

namespace {

bool isAnyCertain(const std::vector<Modification>& modifications)
{
    return std::any_of(modifications.begin(), modifications.end(), isCertain);
}

bool isResidue(const PlaceRule& place, QChar residue)
{
    return place.residue == 0 || place.residue == residue.unicode();
}

} // namespace

bool isCertain(const Modification& modification)
{
    const bool isRemark = !modification.tags.empty() &&
                          std::all_of(modification.tags.begin(), modification.tags.end(),
                                      [](const Tag& tag) { return tag.kind == TagKind::Info; });
    return !isRemark && modification.label.kind != ModificationLabel::Ambiguous;
}

ChainSites::ChainSites(const PeptidoformChain& chain)
    : m_chain(chain)
    , m_isTaken(std::size_t(chain.residues.size()))
    , m_isLeftEndTaken(isAnyCertain(chain.leftEnd))
    , m_isRightEndTaken(isAnyCertain(chain.rightEnd))
{
    for (const ResidueModification& one : chain.modifications) {
        if (isCertain(one.modification))
            take(one.residue);
    }
}

bool ChainSites::isResidueOf(const PlaceRule& place, qsizetype residue) const
{
    return place.terminal == PlaceRule::Anywhere && isResidue(place, m_chain.residues[residue]);
}

bool ChainSites::isLeftEndOf(const PlaceRule& place) const
{
    return place.terminal == PlaceRule::NTerm && isResidue(place, m_chain.residues.front());
}

bool ChainSites::isRightEndOf(const PlaceRule& place) const
{
    return place.terminal == PlaceRule::CTerm && isResidue(place, m_chain.residues.back());
}

std::vector<qsizetype> ChainSites::openSites(const PlacementRules& rules, qsizetype first,
                                             qsizetype last) const
{
    std::vector<qsizetype> sites;
    for (qsizetype residue = first; residue <= last; ++residue) {
        if (canSit(rules, residue))
            sites.push_back(residue);
    }
    return sites;
}

bool ChainSites::canSit(const PlacementRules& rules, qsizetype residue) const
{
    const bool isFree = rules.isWithKnown || !isTaken(residue);
    if (rules.positions.empty())
        return isFree;
    const bool isLast = residue == m_chain.residues.size() - 1;
    return std::any_of(rules.positions.begin(), rules.positions.end(), [&](const PlaceRule& place) {
        return (isFree && isResidueOf(place, residue)) ||
               (residue == 0 && isLeftEndOf(place) && (rules.isWithKnown || !m_isLeftEndTaken)) ||
               (isLast && isRightEndOf(place) && (rules.isWithKnown || !m_isRightEndTaken));
    });
}

} // namespace ions
