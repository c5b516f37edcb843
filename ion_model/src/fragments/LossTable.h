#pragma once

#include "Backbone.h"
#include "FragmentIons.h"

#include <optional>
#include <vector>

namespace ions {

/// One kind of neutral loss, and which ions can show it.
struct LossKind
{
    NeutralLoss loss;
    bool isOfRule = false;  ///< Whether the options name it.
    QString residues;       ///< The letters that lose it by the rule; empty for any ion.
    bool isOfGroup = false; ///< Whether ions that hold a group with this loss show it.

    /// Whether any ion shows it, whatever it holds.
    bool isOfAny() const { return isOfRule && residues.isEmpty(); }
};

/// Whether two losses are one, however they are called.
bool isSameLoss(const NeutralLoss& left, const NeutralLoss& right);
/// Whether a group may lose this.
bool hasLoss(const BackboneGroup& group, const NeutralLoss& loss);

/// What one ion loses at a time.
struct LossSet
{
    QString label;          ///< "-H2O-NH3"; empty for no loss.
    double mass = 0.0;      ///< Monoisotopic, in daltons.
    bool isOfAny = true;    ///< Whether any ion shows it, whatever it holds.
    std::vector<int> times; ///< How often each kind is lost; empty for no loss.
};

/// The losses that ions of a backbone may show: none first, then by number of losses, each in the
/// order of the options, those of groups alone last.
class LossTable
{
public:
    LossTable(const Backbone& backbone, const IonOptions& options);

    /// Whether a table of another backbone and the same options would be the same.
    bool hasGroupsOf(const Backbone& backbone, const IonOptions& options) const;

    const std::vector<LossKind>& kinds() const { return m_kinds; }
    const std::vector<LossSet>& sets() const { return m_sets; }

    /// Whether there were more combinations than an ion list can tell apart.
    bool isTooLarge() const { return m_isTooLarge; }

private:
    void combine(int maxLosses);

    std::vector<LossKind> m_kinds;
    std::vector<LossSet> m_sets;
    bool m_isTooLarge = false;
};

} // namespace ions
