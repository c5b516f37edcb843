#include "proforma/ChainSites.h"

#include <algorithm>

namespace ions {

namespace {

bool isAnyCertain(const std::vector<Modification>& modifications)
{
    return std::any_of(modifications.begin(), modifications.end(), isCertain);
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

MeantSites ChainSites::meant(const std::vector<PlaceRule>& places) const
{
    MeantSites meant;
    for (const PlaceRule& place : places) {
        const auto isAt = [&place](QChar residue) {
            return place.residue == 0 || place.residue == residue.unicode();
        };
        const auto index = std::size_t(place.residue - u'A');
        if (place.terminal == PlaceRule::NTerm)
            meant.isLeftEnd = meant.isLeftEnd || isAt(m_chain.residues.front());
        else if (place.terminal == PlaceRule::CTerm)
            meant.isRightEnd = meant.isRightEnd || isAt(m_chain.residues.back());
        else if (place.residue == 0)
            meant.letters.fill(true);
        else if (index < meant.letters.size())
            meant.letters[index] = true;
    }
    return meant;
}

std::vector<qsizetype> ChainSites::openSites(const PlacementRules& rules, qsizetype first,
                                             qsizetype last) const
{
    MeantSites places = meant(rules.positions);
    if (rules.positions.empty())
        places.letters.fill(true);
    const qsizetype lastUnit = m_chain.residues.size() - 1;
    const bool isLeftEnd = places.isLeftEnd && (rules.isWithKnown || !m_isLeftEndTaken);
    const bool isRightEnd = places.isRightEnd && (rules.isWithKnown || !m_isRightEndTaken);
    std::vector<qsizetype> sites;
    for (qsizetype residue = first; residue <= last; ++residue) {
        const bool isFree = rules.isWithKnown || !isTaken(residue);
        if ((isFree && places.isResidue(m_chain.residues[residue])) ||
            (isLeftEnd && residue == 0) || (isRightEnd && residue == lastUnit))
            sites.push_back(residue);
    }
    return sites;
}

} // namespace ions
