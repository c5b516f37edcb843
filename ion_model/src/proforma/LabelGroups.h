#pragma once

#include "Parsed.h"
#include "ProForma.h"
#include "proforma/IonLayout.h"
#include "proforma/PartWeigher.h"

#include <QString>

#include <map>
#include <optional>
#include <tuple>
#include <utility>
#include <vector>

namespace ions {

/// What one label joins.
struct LabelGroup
{
    const Modification* description = nullptr; ///< Null as long as only the label was met.
    PartWeight weight;
    int count = 1;
    std::vector<std::pair<std::size_t, qsizetype>> sites; ///< Chains and units.
    std::vector<LaidMention> mentions;                    ///< In the order of the lists.
    /// Where it may sit if it is mentioned for all of a chain.
    std::optional<std::vector<qsizetype>> everywhere;

    /// Notes what one mention describes; gives the refusal if another one says otherwise.
    std::optional<Error> describe(const Modification& modification, PartWeight other, int times);
};

/// The labels of an ion. Bridges reach from chain to chain, ambiguous places belong to one.
class LabelGroups
{
public:
    /// What a label joins where it is met in a chain.
    LabelGroup& of(const ModificationLabel& label, std::size_t chain);

    /// All of them, in the order in which they were met.
    std::vector<LabelGroup>& groups() { return m_groups; }

private:
    std::map<std::tuple<std::size_t, int, QString>, std::size_t> m_indices;
    std::vector<LabelGroup> m_groups;
};

} // namespace ions
