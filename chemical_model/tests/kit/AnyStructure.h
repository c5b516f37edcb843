#pragma once

#include <ChemicalModel.h>

/// \file
/// Structured molecules put together from parts that somebody chooses. `Parts` has
///
/// - `group()`, what a modification, a link or a terminal adds;
/// - `position()`, a place in or around the molecule, and `endBehind(int start)` of a piece;
/// - `chain()`;
/// - `placeCount()`, `chainCount()`, `modificationCount()` and `linkCount()`.
///
/// Each part is chosen into a local before the next one: compilers evaluate arguments in different
/// orders.

namespace anyStructure {

/// Groups without a formula, numbered from 0: nothing, a whole number and a fraction of daltons.
inline const QList<chem::MoleculeEntity>& bareGroups()
{
    static const QList<chem::MoleculeEntity> groups = {nullptr, 7, 2.5};
    return groups;
}

/// What `make` makes, `count` times.
template <typename Make>
auto listOf(int count, Make make)
{
    QList<decltype(make())> list;
    for (; count > 0; --count)
        list.append(make());
    return list;
}

template <typename Parts>
chem::Modification modification(Parts* parts)
{
    const chem::MoleculeEntity added = parts->group();
    return {added, listOf(parts->placeCount(), [parts] { return parts->position(); })};
}

template <typename Parts>
chem::Link link(Parts* parts)
{
    const chem::MoleculeEntity bridge = parts->group();
    const std::pair<int, int> first = parts->position();
    const std::pair<int, int> second = parts->position();
    return {bridge, {first, second}};
}

template <typename Parts>
chem::ChainFragmentDef piece(Parts* parts)
{
    const chem::MoleculeEntity startTerminal = parts->group();
    const auto [chain, start] = parts->position();
    const int end = parts->endBehind(start);
    const chem::MoleculeEntity endTerminal = parts->group();
    return {startTerminal, {QStringLiteral("piece"), chain, start, end}, endTerminal};
}

struct Structure
{
    QList<chem::Chain> chains;
    QList<chem::Modification> modifications;
    QList<chem::Link> links;
};

template <typename Parts>
Structure structure(Parts* parts)
{
    Structure made;
    made.chains = listOf(parts->chainCount(), [parts] { return parts->chain(); });
    made.modifications =
        listOf(parts->modificationCount(), [parts] { return modification(parts); });
    made.links = listOf(parts->linkCount(), [parts] { return link(parts); });
    return made;
}

} // namespace anyStructure
