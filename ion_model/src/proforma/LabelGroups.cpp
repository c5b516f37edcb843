#include "proforma/LabelGroups.h"

#include "proforma/ModificationText.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace ions {

std::optional<Error> LabelGroup::describe(const Modification& modification, PartWeight other,
                                          int times)
{
    if (description && !isSameWeight(weight, other)) {
        return Error{u"expected the modification that the label has elsewhere, "_s +
                     modificationText(*description)};
    }
    description = &modification;
    weight = std::move(other);
    count = std::max(count, times);
    return {};
}

LabelGroup& LabelGroups::of(const ModificationLabel& label, std::size_t chain)
{
    const bool isOfChain = label.kind == ModificationLabel::Ambiguous;
    const auto [place, isNew] = m_indices.try_emplace(
        {isOfChain ? chain + 1 : 0, int(label.kind), label.name}, m_groups.size());
    if (isNew)
        m_groups.emplace_back();
    return m_groups[place->second];
}

} // namespace ions
