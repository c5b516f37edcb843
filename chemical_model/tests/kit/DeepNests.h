#pragma once

#include <ChemicalModel.h>

#include <array>

/// \file
/// Molecules that hold one another: each level in the next one.

namespace deepNests {

using chem::MoleculeEntity;
using chem::StructuredMolecule;

/// A way to hold a molecule inside another one.
struct Nesting
{
    const char* name;
    MoleculeEntity (*outer)(const MoleculeEntity& inner);
};

/// A molecule with one part.
template <typename Part>
MoleculeEntity with(QList<Part> StructuredMolecule::*list, const Part& part)
{
    StructuredMolecule molecule;
    molecule.*list = {part};
    return molecule;
}

inline constexpr std::array<Nesting, 6> nestings = {{
    {"chain",
     [](const MoleculeEntity& inner) {
         return with(&StructuredMolecule::chains,
                     chem::Chain({}, {}, {inner}, chem::MoleculeType::Unknown, {}));
     }},
    {"link",
     [](const MoleculeEntity& inner) {
         return with(&StructuredMolecule::links, chem::Link(inner, {}));
     }},
    {"modification of a molecule",
     [](const MoleculeEntity& inner) {
         return with(&StructuredMolecule::modifications, chem::Modification(inner, {}));
     }},
    {"modification as an entity",
     [](const MoleculeEntity& inner) {
         return MoleculeEntity(chem::Modification(inner, {}));
     }},
    {"argument of a step",
     [](const MoleculeEntity& inner) {
         return with(&StructuredMolecule::transformations,
                     chem::TransformationEntity(chem::Modify(inner), 0));
     }},
    {"molecule before a step",
     [](const MoleculeEntity& inner) {
         return with(&StructuredMolecule::transformations,
                     chem::TransformationEntity(chem::Modify(0), inner));
     }},
}};

/// As deep as a caller can build without a thought of the stack.
constexpr int greatDepth = 200000;

/// A mass inside so many levels. `outer` gets the level and what is inside.
template <typename Outer>
MoleculeEntity nested(int depth, Outer outer)
{
    MoleculeEntity inner = 1.0;
    for (int level = 0; level < depth; ++level)
        inner = outer(level, inner);
    return inner;
}

inline MoleculeEntity nestedIn(const Nesting& nesting, int depth = greatDepth)
{
    return nested(depth,
                  [&nesting](int, const MoleculeEntity& inner) { return nesting.outer(inner); });
}

/// Through each kind in turn.
inline MoleculeEntity mixedNest(int depth)
{
    return nested(depth, [](int level, const MoleculeEntity& inner) {
        return nestings.at(static_cast<std::size_t>(level) % nestings.size()).outer(inner);
    });
}

/// A molecule after so many steps, each with a history of its own step alone.
inline MoleculeEntity deepHistory(int depth)
{
    return nestedIn(nestings.back(), depth);
}

} // namespace deepNests
