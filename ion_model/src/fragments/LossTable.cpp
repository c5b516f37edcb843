#include "fragments/LossTable.h"

#include "masses/EntityMasses.h"

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
    longer.isOfAny = longer.isOfAny && kinds[kind].isOfAny();
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

} // namespace

bool isSameLoss(const NeutralLoss& left, const NeutralLoss& right)
{
    return isSameMass(left.masses, right.masses);
}

bool hasLoss(const BackboneGroup& group, const NeutralLoss& loss)
{
    return std::any_of(group.losses.begin(), group.losses.end(),
                       [&](const NeutralLoss& own) { return isSameLoss(own, loss); });
}

LossTable::LossTable(const Backbone& backbone, const IonOptions& options)
{
    for (const LossRule& rule : options.losses)
        m_kinds.push_back({rule.loss, true, rule.residues, false});
    visitGroupLosses(backbone, options, [this](const NeutralLoss& loss) {
        const auto known = std::find_if(m_kinds.begin(), m_kinds.end(), [&](const LossKind& kind) {
            return isSameLoss(kind.loss, loss);
        });
        if (known == m_kinds.end())
            m_kinds.push_back({loss, false, {}, true});
        else
            known->isOfGroup = true;
    });
    combine(std::clamp(options.maxLosses, 0, mostLossesAtOnce));
}

bool LossTable::hasGroupsOf(const Backbone& backbone, const IonOptions& options) const
{
    bool isSame = true;
    visitGroupLosses(backbone, options, [&](const NeutralLoss& loss) {
        isSame = isSame && std::any_of(m_kinds.begin(), m_kinds.end(), [&](const LossKind& kind) {
                     return kind.isOfGroup && isSameLoss(kind.loss, loss);
                 });
    });
    return isSame && std::all_of(m_kinds.begin(), m_kinds.end(), [&](const LossKind& kind) {
               bool isThere = !kind.isOfGroup;
               if (kind.isOfGroup)
                   visitGroupLosses(backbone, options, [&](const NeutralLoss& loss) {
                       isThere = isThere || isSameLoss(kind.loss, loss);
                   });
               return isThere;
           });
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
