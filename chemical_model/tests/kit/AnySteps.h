#pragma once

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

/// A position around a molecule of up to three chains of up to seven residues.
template <typename Choices>
Position anyPosition(Choices* choices)
{
    const int chain = anyIndex(choices, 3);
    return {chain, anyIndex(choices, 7)};
}

/// Groups that a step adds: few, so that what was put on is met again when something is taken off.
/// The one loss is no whole number, so that nothing adds up to a mass of 0 by chance.
template <typename Choices>
chem::MoleculeEntity anyGroup(Choices* choices)
{
    switch (choices->below(6)) {
    case 0:
        return nullptr;
    case 1:
        return 7;
    case 2:
        return 2.5;
    case 3:
        return group(QStringLiteral("CH2"), 14.0);
    case 4:
        return namedGroup(QStringLiteral("phosphorylation"), QStringLiteral("p"),
                          QStringLiteral("HPO3"), 80.0);
    default:
        return group(QStringLiteral("H-2"), -2.0 - 1.0 / 1024);
    }
}

template <typename Choices>
chem::MoleculeEntity anyResidue(Choices* choices)
{
    const int kind = choices->below(8);
    switch (kind) {
    case 0:
        return 100;
    case 1:
        return namedGroup(QStringLiteral("cap"), QString(), QStringLiteral("C2H3O"), 43.0);
    case 2:
        return chem::Modify(anyGroup(choices)).transform(smallMolecules::aminoAcid(u'S'));
    default:
        return smallMolecules::aminoAcid(QStringLiteral("CDKRP")[kind - 3]);
    }
}

template <typename Choices>
chem::Modification anyModification(Choices* choices)
{
    const chem::MoleculeEntity added = anyGroup(choices);
    QList<Position> places;
    for (int count = choices->below(3); count > 0; --count)
        places.append(anyPosition(choices));
    return {added, places};
}

template <typename Choices>
chem::Link anyLink(Choices* choices)
{
    const chem::MoleculeEntity bridge = anyGroup(choices);
    const Position first = anyPosition(choices);
    return {bridge, {first, anyPosition(choices)}};
}

template <typename Choices>
chem::MoleculeEntity anyMolecule(Choices* choices)
{
    QList<chem::Chain> chains;
    for (int count = choices->below(4); count > 0; --count) {
        QList<chem::MoleculeEntity> residues;
        for (int size = choices->below(8); size > 0; --size)
            residues.append(anyResidue(choices));
        chains.append(smallMolecules::chainOf(residues, QStringLiteral("chain %1").arg(count)));
    }
    QList<chem::Modification> modifications;
    for (int count = choices->below(3); count > 0; --count)
        modifications.append(anyModification(choices));
    QList<chem::Link> links;
    for (int count = choices->below(4); count > 0; --count)
        links.append(anyLink(choices));
    return smallMolecules::moleculeOf(chains, modifications, links);
}

template <typename Choices>
chem::ChainFragmentDef anyPiece(Choices* choices)
{
    const chem::MoleculeEntity start = anyGroup(choices);
    const auto [chain, first] = anyPosition(choices);
    const int end = anyIndex(choices, 7);
    return {start, {QStringLiteral("piece"), chain, first, end}, anyGroup(choices)};
}

/// A step of any kind; of one that cuts only if `mayCut`, as pieces that overlap multiply links.
template <typename Choices>
std::unique_ptr<chem::Transformation> anyStep(Choices* choices, bool mayCut = true)
{
    switch (choices->below(mayCut ? 6 : 5)) {
    case 0:
    case 1:
        return std::make_unique<chem::Modify>(anyModification(choices));
    case 2:
    case 3:
        return std::make_unique<chem::Unmodify>(anyModification(choices));
    case 4: {
        const chem::Link link = anyLink(choices);
        return std::make_unique<chem::EstablishLink>(link.entity(), link.connection());
    }
    default:
        QList<chem::ChainFragmentDef> pieces;
        for (int count = choices->below(4); count > 0; --count)
            pieces.append(anyPiece(choices));
        return std::make_unique<chem::ChainFragmenter>(pieces);
    }
}

/// Totals added up from the parts, without regard to what is stored.
struct Sum
{
    double averageMass = 0.0;
    double monoMass = 0.0;
    QMap<QString, double> counts;

    void add(const chem::MoleculeEntity& entity)
    {
        averageMass += entity.averageMass();
        monoMass += entity.monoMass();
        const QMap<QString, double> addends = entity.formula().elementCountMap();
        for (auto addend = addends.cbegin(); addend != addends.cend(); ++addend)
            counts[addend.key()] += addend.value();
    }
};

inline Sum sumOfParts(const chem::MoleculeEntity& molecule)
{
    Sum sum;
    const QList<chem::Chain> chains = molecule.chains();
    for (const chem::Chain& chain : chains) {
        for (const chem::MoleculeEntity& residue : chain.residues())
            sum.add(residue);
    }
    const QList<chem::Link> links = molecule.links();
    for (const chem::Link& link : links)
        sum.add(link.entity());
    const QList<chem::Modification> modifications = molecule.modifications();
    for (const chem::Modification& modification : modifications)
        sum.add(modification.entity());
    return sum;
}

/// Counts without the zeros that a loss leaves behind.
inline QMap<QString, double> withoutZeros(QMap<QString, double> counts)
{
    counts.removeIf([](const auto& entry) { return entry.value() == 0.0; });
    return counts;
}

} // namespace anySteps
