#pragma once

#include "ProForma.h"

#include <array>
#include <vector>

namespace ions {

/// Whether the modification is there for certain: a remark modifies nothing, and an ambiguous label
/// says that it may sit elsewhere.
bool isCertain(const Modification& modification);

/// Which sites of a chain a list of places means, whose length costs nothing once it is read.
struct MeantSites
{
    std::array<bool, 26> letters{}; ///< By capital letter: residues themselves, not as an end.
    bool isLeftEnd = false;
    bool isRightEnd = false;

    bool isResidue(QChar residue) const
    {
        const auto index = std::size_t(residue.unicode() - u'A');
        return index < letters.size() && letters[index];
    }
};

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

    /// What places mean in this chain.
    MeantSites meant(const std::vector<PlaceRule>& places) const;

    /// The residues from `first` to `last` on which an open modification may sit, ends counting as
    /// their residue.
    std::vector<qsizetype> openSites(const PlacementRules& rules, qsizetype first,
                                     qsizetype last) const;

private:
    const PeptidoformChain& m_chain;
    std::vector<bool> m_isTaken;
    bool m_isLeftEndTaken;
    bool m_isRightEndTaken;
};

} // namespace ions
