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
    longer.isOfAny = longer.isOfAny && kinds[kind].residues.isEmpty() && !kinds[kind].isOfGroup;
    longer.label += u"-"_s + kinds[kind].loss.name;
    return longer;
}

/// Hands each loss of a group to the function.
template <typename Visit>
void visitGroupLosses(const Backbone& backbone, const IonOptions& options, const Visit& visit)
{
    if (!options.hasGroupLosses)
        return;
    for (const BackboneChain& chain : backbone.chains()) {
        for (const auto& [unit, group] : chain.lossy)
            std::for_each(group.losses.begin(), group.losses.end(), visit);
        for (const OpenGroup& open : chain.open)
            std::for_each(open.group.losses.begin(), open.group.losses.end(), visit);
    }
}

/// Whether one of the first kinds is this loss of a group.
bool isAmong(const std::vector<LossKind>& kinds, std::size_t count, const NeutralLoss& loss)
{
    return std::any_of(kinds.begin(), kinds.begin() + std::ptrdiff_t(count),
                       [&](const LossKind& kind) { return kind.isOfGroup && kind.loss == loss; });
}

} // namespace

LossTable::LossTable(const Backbone& backbone, const IonOptions& options)
{
    for (const LossRule& rule : options.losses)
        m_kinds.push_back({rule.loss, rule.residues, false});
    visitGroupLosses(backbone, options, [this](const NeutralLoss& loss) {
        if (!isAmong(m_kinds, m_kinds.size(), loss))
            m_kinds.push_back({loss, {}, true});
    });
    combine(std::clamp(options.maxLosses, 0, mostLossesAtOnce));
}

bool LossTable::hasGroupsOf(const Backbone& backbone, const IonOptions& options) const
{
    std::size_t seen = options.losses.size();
    bool isSame = true;
    visitGroupLosses(backbone, options, [&](const NeutralLoss& loss) {
        if (!isSame || isAmong(m_kinds, seen, loss))
            return;
        ++seen;
        isSame = seen <= m_kinds.size() && isAmong(m_kinds, seen, loss);
    });
    return isSame && seen == m_kinds.size();
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
