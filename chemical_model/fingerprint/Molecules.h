#pragma once

#include "AnyStructure.h"
#include "Choices.h"

/// \file
/// Structured molecules and their parts, places outside the molecule among them.

/// The parts, as AnyStructure.h puts them together.
class AnyParts
{
public:
    explicit AnyParts(Choices* choices)
        : m_choices(choices)
    {
    }

    /// A group that a modification or link adds or takes away; now and then a bare mass or nothing.
    chem::MoleculeEntity group();

    /// A position near a chain or residue that may exist.
    std::pair<int, int> position();

    int endBehind(int start) { return start + m_choices->from(-1, 6); }

    /// A chain of a text, or one of residues put together by hand.
    chem::Chain chain();

    int placeCount() { return m_choices->oneIn(3) ? m_choices->below(4) : 1; }
    int chainCount() { return m_choices->oneIn(10) ? 0 : m_choices->from(1, 3); }
    int modificationCount() { return m_choices->below(3); }
    int linkCount() { return m_choices->below(3); }

private:
    chem::MoleculeEntity residue();
    chem::Chain chainByHand();

    Choices* m_choices;
};

/// Up to three chains with modifications and links.
chem::MoleculeEntity anyMolecule(Choices* choices);

inline chem::MoleculeEntity anyGroup(Choices* choices)
{
    return AnyParts(choices).group();
}

inline std::pair<int, int> anyPosition(Choices* choices)
{
    return AnyParts(choices).position();
}

inline chem::Chain anyChain(Choices* choices)
{
    return AnyParts(choices).chain();
}

inline chem::Modification anyModification(Choices* choices)
{
    AnyParts parts(choices);
    return anyStructure::modification(&parts);
}

inline chem::Link anyLink(Choices* choices)
{
    AnyParts parts(choices);
    return anyStructure::link(&parts);
}
