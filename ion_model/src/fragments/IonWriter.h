#pragma once

#include "Backbone.h"
#include "FragmentIons.h"
#include "fragments/CutSegments.h"
#include "fragments/GroupIons.h"
#include "fragments/IonPlan.h"
#include "fragments/LossHolders.h"
#include "fragments/OpenVariants.h"
#include "fragments/UnitRange.h"

#include <optional>
#include <vector>

namespace ions {

/// Writes the ions of one backbone into a list.
class IonWriter
{
public:
    IonWriter(const Backbone& backbone, const IonOptions& options, FragmentIons& ions);

    /// Replaces the list; gives the refusal, with the list empty, where there is one.
    std::optional<Error> write();

private:
    /// A chain and the sums over its units.
    struct Chain
    {
        const BackboneChain* chain;
        const double* sums; ///< What stands left of each unit, and all units.
        double rightTotal;  ///< What all units with both end groups come to, for ions of the right.
        qsizetype index;
        qsizetype size;
    };

    /// The cuts and open groups of a chain.
    struct Plan
    {
        std::vector<CutSegment> segments;
        std::vector<OpenVariant> left;
        std::vector<OpenVariant> right;
    };

    bool isPlain() const;
    Chain chainAt(qsizetype index, const double* sums) const;
    void usePlan();
    void makeRoom(std::size_t ions);
    std::optional<Error> writePlain();
    std::optional<Error> writeAll();
    void writeUniform(const Chain& chain);
    std::optional<Error> plan();
    static std::optional<Error> fill(std::vector<OpenVariant>* variants, const Chain& chain,
                                     const UnitRange& range, NumberSpan numbers);

    std::optional<Error> writeKind(const IonKind& kind);
    void writeTerminal(const IonKind& kind, const Chain& chain);
    std::optional<Error> writeWhole(const IonKind& kind);
    double chargedWhole(const IonKind& kind) const;
    void writePrecursor(const IonKind& kind);
    std::optional<Error> writeGlycans(const IonKind& kind);
    std::optional<Error> writeLone(const IonKind& kind,
                                   const std::optional<std::vector<LoneIon>>& lone);
    std::optional<Error> writeImmonium(const IonKind& kind, const Chain& chain);
    std::optional<Error> writeInternal(const IonKind& kind, const Chain& chain);
    std::optional<Error> writeMiddle(const IonKind& kind, const Chain& chain, qsizetype start,
                                     NumberSpan numbers);

    void writeRun(const IonKind& kind, const Chain& chain, NumberSpan numbers, double mass,
                  std::size_t variant);
    double* appendRun(const IonKind& kind, const Chain& chain, NumberSpan numbers,
                      std::size_t variant);

    LossHolders holders() const { return {m_backbone, m_plan->losses()}; }

    const Backbone& m_backbone;
    const IonOptions& m_options;
    FragmentIons& m_ions;
    const IonPlan* m_plan = nullptr; ///< That of the list.
    std::vector<Chain> m_chains;
    std::vector<Plan> m_plans;
};

} // namespace ions
