#include "fragments/LossTable.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace ions {

namespace {

constexpr std::size_t mostSets = 1000;
constexpr int mostLossesAtOnce = 4;

/// `set` with one more loss of a kind.
LossSet extended(const LossSet& set, const std::vector<LossKind>& kinds, std::size_t kind)
{
    LossSet longer = set;
    longer.times.resize(kinds.size());
    ++longer.times[kind];
    longer.mass += kinds[kind].loss.masses.monoisotopic;
    longer.label += u"-"_s + kinds[kind].loss.name;
    return longer;
}

} // namespace

LossTable::LossTable(const Backbone& backbone, const IonOptions& options)
{
    for (const LossRule& rule : options.losses)
        m_kinds.push_back({rule.loss, rule.residues, false});
    for (const BackboneChain& chain : backbone.chains()) {
        if (!options.hasGroupLosses)
            break;
        for (const auto& [unit, group] : chain.lossy)
            addGroup(group);
        for (const OpenGroup& open : chain.open)
            addGroup(open.group);
    }
    combine(std::clamp(options.maxLosses, 0, mostLossesAtOnce));
}

void LossTable::addGroup(const BackboneGroup& group)
{
    for (const NeutralLoss& loss : group.losses) {
        const bool isKnown = std::any_of(m_kinds.begin(), m_kinds.end(), [&](const LossKind& kind) {
            return kind.isOfGroup && kind.loss == loss;
        });
        if (!isKnown)
            m_kinds.push_back({loss, {}, true});
    }
}

void LossTable::combine(int maxLosses)
{
    m_sets = {LossSet()};
    std::vector<std::size_t> lastKinds = {0}; // of each set, so that each combination comes once
    std::size_t first = 0;
    for (int size = 1; size <= maxLosses && !m_isTooLarge; ++size) {
        const std::size_t end = m_sets.size();
        for (std::size_t shorter = first; shorter < end; ++shorter) {
            for (std::size_t kind = lastKinds[shorter]; kind < m_kinds.size(); ++kind) {
                m_sets.push_back(extended(m_sets[shorter], m_kinds, kind));
                lastKinds.push_back(kind);
                m_isTooLarge = m_sets.size() > mostSets;
                if (m_isTooLarge)
                    return;
            }
        }
        first = end;
    }
}

} // namespace ions
