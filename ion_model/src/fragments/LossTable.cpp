#include "fragments/LossTable.h"

#include "fragments/BackboneGroups.h"
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
    visitHeldGroups(backbone, [&visit](const BackboneGroup& group) {
        std::for_each(group.losses.begin(), group.losses.end(), visit);
    });
}

/// Whether a group of the backbone may lose this.
bool isLostByGroup(const Backbone& backbone, const IonOptions& options, const NeutralLoss& loss)
{
    bool isLost = false;
    visitGroupLosses(backbone, options,
                     [&](const NeutralLoss& own) { isLost = isLost || isSameLoss(own, loss); });
    return isLost;
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
    const auto isOfKind = [this](const NeutralLoss& loss) {
        return std::any_of(m_kinds.begin(), m_kinds.end(), [&loss](const LossKind& kind) {
            return kind.isOfGroup && isSameLoss(kind.loss, loss);
        });
    };
    bool isSame = true;
    visitGroupLosses(backbone, options,
                     [&](const NeutralLoss& loss) { isSame = isSame && isOfKind(loss); });
    return isSame && std::all_of(m_kinds.begin(), m_kinds.end(), [&](const LossKind& kind) {
               return !kind.isOfGroup || isLostByGroup(backbone, options, kind.loss);
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
