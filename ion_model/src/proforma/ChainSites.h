#pragma once

#include "ProForma.h"

#include <vector>

namespace ions {

/// Whether the modification is there for certain: a remark modifies nothing, and an ambiguous label
/// says that it may sit elsewhere.
bool isCertain(const Modification& modification);

/// Which residues and ends of a chain bear a modification for certain, and which may bear another.
class ChainSites
{
public:
    explicit ChainSites(const PeptidoformChain& chain);

    bool isTaken(qsizetype residue) const { return m_isTaken[std::size_t(residue)]; }
    bool isLeftEndTaken() const { return m_isLeftEndTaken; }
    bool isRightEndTaken() const { return m_isRightEndTaken; }
    /// Notes that a rule modifies the residue.
    void take(qsizetype residue) { m_isTaken[std::size_t(residue)] = true; }

    /// Whether a rule means this residue itself, not as an end.
    bool isResidueOf(const PlaceRule& place, qsizetype residue) const;
    /// Whether a rule means an end: the left one, or the right one.
    bool isLeftEndOf(const PlaceRule& place) const;
    bool isRightEndOf(const PlaceRule& place) const;

    /// The residues from `first` to `last` on which an open modification may sit, ends counting as
    /// their residue.
    std::vector<qsizetype> openSites(const PlacementRules& rules, qsizetype first,
                                     qsizetype last) const;

private:
    bool canSit(const PlacementRules& rules, qsizetype residue) const;

    const PeptidoformChain& m_chain;
    std::vector<bool> m_isTaken;
    bool m_isLeftEndTaken;
    bool m_isRightEndTaken;
};

} // namespace ions
