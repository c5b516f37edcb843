#pragma once

#include "Backbone.h"
#include "FragmentIons.h"
#include "fragments/CutSegments.h"
#include "fragments/LossTable.h"
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
    /// What all ions of a loop have in common.
    struct Kind
    {
        Series series;
        int hydrogens;
        int charge;
        std::size_t loss;
    };

    /// A chain and the sums over its units.
    struct Chain
    {
        const BackboneChain* chain;
        std::size_t sums;  ///< Where its sums start.
        double rightTotal; ///< What all units with both end groups come to, for ions of the right.
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
    void clear();
    Chain sumUp(qsizetype index);
    std::optional<Error> writePlain();
    std::optional<Error> writeAll();
    std::optional<Error> plan();

    void writeKind(const Kind& kind);
    void writeTerminal(const Kind& kind, const Chain& chain);
    void writePrecursor(const Kind& kind);
    void writeImmonium(const Kind& kind, const Chain& chain);
    void writeInternal(const Kind& kind, const Chain& chain);
    void writeMiddle(const Kind& kind, const Chain& chain, qsizetype start, NumberSpan numbers);

    void writeRun(const Kind& kind, const Chain& chain, NumberSpan numbers, double mass,
                  std::size_t variant);
    double* appendRun(const Kind& kind, const Chain& chain, NumberSpan numbers,
                      std::size_t variant);
    double chargedMass(const Kind& kind, Polymer polymer) const;

    NumberSpan numbersWithLosses(const Kind& kind, const Chain& chain, const UnitRange& range,
                                 const OpenVariant& variant, const std::vector<qsizetype>& others,
                                 NumberSpan numbers) const;
    int holders(const LossKind& loss, const BackboneChain& chain, qsizetype begin,
                qsizetype end) const;
    int holdersInChains(const LossKind& loss, const std::vector<qsizetype>& chains) const;

    const Backbone& m_backbone;
    const IonOptions& m_options;
    FragmentIons& m_ions;
    std::optional<LossTable> m_losses; ///< Nothing where no ion loses anything.
    std::vector<Chain> m_chains;
    std::vector<Plan> m_plans;
};

} // namespace ions
