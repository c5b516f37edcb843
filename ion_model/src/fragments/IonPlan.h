#pragma once

#include "Backbone.h"
#include "FragmentIons.h"
#include "fragments/LossTable.h"

#include <optional>
#include <vector>

namespace ions {

/// Which sums the ions of a series start from: those over the units of their side, and for
/// oligonucleotides what the break leaves or takes.
enum class IonSums : quint8 { Left, LeftWithLinkage, LeftWithoutBase, Right, RightWithLinkage };

/// Ions of one series, number of hydrogens, charge and loss.
struct IonKind
{
    Series series = Series::B;
    int hydrogens = 0;
    int charge = 1;
    std::size_t loss = 0;

    /// A run of such ions, without numbers.
    IonRun run() const;
};

/// A kind of ions of the ends, worked out.
struct EndKind
{
    IonKind kind;
    double added = 0.0; ///< What the ions have beside the sums, charges included.
    double scale = 1.0; ///< What a mass is multiplied by to be an m/z.
    IonSums sums = IonSums::Left;
};

/// What options come to for backbones that break alike, worked out once for all of them.
class IonPlan
{
public:
    IonPlan(const Backbone& backbone, const IonOptions& options);

    /// Whether another plan for these would be the same, so that a search makes one and keeps it.
    /// Copies no text, whose reference count threads with equal options may share.
    bool isFor(const Backbone& backbone, const IonOptions& options) const;

    /// Why there are no ions by these options, if that is so.
    const std::optional<Error>& refusal() const { return m_refusal; }
    const LossTable& losses() const { return m_losses; }

    /// All kinds in the order of the results, those that no chain shows among them.
    const std::vector<IonKind>& kinds() const { return m_kinds; }

    /// The kinds of a single chain, where all of them are ions of its ends; else none.
    const std::vector<EndKind>& endKinds() const { return m_endKinds; }
    /// Whether all ions of these show all losses.
    bool isUniform() const { return m_isUniform; }

    /// What ions of a kind have beside their units, their end's group and what hangs on them,
    /// charges included.
    double chargedMass(const IonKind& kind, Polymer polymer) const;

private:
    void listKinds();
    void listEndKinds(Polymer polymer);

    IonOptions m_options;
    BreakMasses m_breaks;
    Polymer m_polymer;
    LossTable m_losses;
    std::vector<IonKind> m_kinds;
    std::vector<EndKind> m_endKinds;
    bool m_isUniform = true;
    std::optional<Error> m_refusal;
};

} // namespace ions
