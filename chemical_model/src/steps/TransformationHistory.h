#pragma once

#include "StructuredMolecule.h"
#include "Transformation.h"

#include <utility>

namespace chem {

/// Ends a step: `result`, which grew out of a structuredCopy() of `input`, gets one more history
/// entry.
template <TransformationEntityInternal::TransformationStep T>
MoleculeEntity recordStep(StructuredMolecule result, const T& step, const MoleculeEntity& input)
{
    // Each molecule on the way keeps its own list, so room to grow would never be used.
    // Made apart: to reserve room in a list with entries, Qt 6.4 does not check for memory.
    QList<TransformationEntity> history;
    history.reserve(result.transformations.size() + 1);
    history.append(result.transformations);
    history.append(TransformationEntity(step, input));
    result.transformations = std::move(history);
    return MoleculeEntity(std::move(result));
}

} // namespace chem
