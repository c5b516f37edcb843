#pragma once

#include "AnyStructure.h"
#include "SmallMolecules.h"

#include <limits>
#include <memory>

/// \file
/// Any small molecule and any step on it, by the choices of a source: a property test's generator
/// or the bytes of a fuzzer. A source has `int below(int end)`, a number from 0 to `end` - 1.
///
/// All masses are multiples of 2^-11, so that sums over a molecule's parts are exact in any order
/// and can be compared with totals that were corrected step by step.

namespace anySteps {

using smallMolecules::group;
using smallMolecules::namedGroup;
using smallMolecules::Position;

/// Mostly an index of a list of `count` entries or one beside them; now and then one far outside.
template <typename Choices>
int anyIndex(Choices* choices, int count)
{
    switch (choices->below(16)) {
    case 14:
        return std::numeric_limits<int>::min();
    case 15:
        return std::numeric_limits<int>::max();
    default:
        return choices->below(count + 3) - 1;
    }
}

/// The parts of molecules of up to three chains of up to seven residues.
template <typename Choices>
class SmallParts
{
public:
    explicit SmallParts(Choices* choices)
        : m_choices(choices)
    {
    }

    Position position()
    {
        const int chain = anyIndex(m_choices, 3);
        return {chain, anyIndex(m_choices, 7)};
    }

    int endBehind(int) { return anyIndex(m_choices, 7); }

    /// Few groups, so that what was put on is met again when something is taken off. The one loss
    /// is no whole number, so that nothing adds up to a mass of 0 by chance.
    chem::MoleculeEntity group()
    {
        const int kind = m_choices->below(6);
        switch (kind) {
        case 0:
        case 1:
        case 2:
            return anyStructure::bareGroups()[kind];
        case 3:
            return smallMolecules::methylene();
        case 4:
            return smallMolecules::phosphorylation();
        default:
            return smallMolecules::group(QStringLiteral("H-2"), -2.0 - 1.0 / 1024);
        }
    }

    chem::MoleculeEntity residue()
    {
        const int kind = m_choices->below(8);
        switch (kind) {
        case 0:
            return 100;
        case 1:
            return namedGroup(QStringLiteral("cap"), QString(), QStringLiteral("C2H3O"), 43.0);
        case 2:
            return chem::Modify(group()).transform(smallMolecules::aminoAcid(u'S'));
        default:
            return smallMolecules::aminoAcid(QStringLiteral("CDKRP")[kind - 3]);
        }
    }

    chem::Chain chain()
    {
        return smallMolecules::chainOf(
            anyStructure::listOf(m_choices->below(8), [this] { return residue(); }),
            QStringLiteral("chain %1").arg(++m_chains));
    }

    int placeCount() { return m_choices->below(3); }
    int chainCount() { return m_choices->below(4); }
    int modificationCount() { return m_choices->below(3); }
    int linkCount() { return m_choices->below(4); }

private:
    Choices* m_choices;
    int m_chains = 0;
};

template <typename Choices>
chem::Modification anyModification(Choices* choices)
{
    SmallParts parts(choices);
    return anyStructure::modification(&parts);
}

template <typename Choices>
chem::MoleculeEntity anyMolecule(Choices* choices)
{
    SmallParts parts(choices);
    const auto [chains, modifications, links] = anyStructure::structure(&parts);
    return smallMolecules::moleculeOf(chains, modifications, links);
}

/// A step of any kind; one that cuts only if `mayCut`, as pieces that overlap multiply links.
template <typename Choices>
std::unique_ptr<chem::Transformation> anyStep(Choices* choices, bool mayCut)
{
    SmallParts parts(choices);
    switch (choices->below(mayCut ? 6 : 5)) {
    case 0:
    case 1:
        return std::make_unique<chem::Modify>(anyStructure::modification(&parts));
    case 2:
    case 3:
        return std::make_unique<chem::Unmodify>(anyStructure::modification(&parts));
    case 4: {
        const chem::Link link = anyStructure::link(&parts);
        return std::make_unique<chem::EstablishLink>(link.entity(), link.connection());
    }
    default:
        return std::make_unique<chem::ChainFragmenter>(anyStructure::listOf(
            choices->below(4), [&parts] { return anyStructure::piece(&parts); }));
    }
}

/// A step that keeps the molecule small.
template <typename Choices>
std::unique_ptr<chem::Transformation> anyStepOn(const chem::MoleculeEntity& molecule,
                                                Choices* choices)
{
    constexpr qsizetype mostLinks = 64;
    return anyStep(choices, molecule.links().size() <= mostLinks);
}

} // namespace anySteps
