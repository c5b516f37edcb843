#pragma once

#include "Backbone.h"
#include "FragmentIons.h"

#include <algorithm>
#include <map>
#include <set>
#include <vector>

/// \file
/// Fragment ions by walking through the molecule: for each cut what still hangs on each side, unit
/// by unit, and for each open group every place. Nothing is summed up in advance.

namespace ions {

/// One cut of a molecule and the units on one side of it.
class BrokenMolecule
{
public:
    /// Cuts `chain` in front of the unit `cut`.
    BrokenMolecule(const Backbone& backbone, qsizetype chain, qsizetype cut)
        : m_backbone(backbone)
        , m_chain(chain)
        , m_cut(cut)
    {
    }

    using Unit = std::pair<qsizetype, qsizetype>; ///< Chain and place.

    /// All units that hang together with this one.
    std::set<Unit> unitsWith(Unit start) const
    {
        std::set<Unit> reached;
        std::vector<Unit> open = {start};
        while (!open.empty()) {
            const Unit unit = open.back();
            open.pop_back();
            if (!reached.insert(unit).second)
                continue;
            for (const Unit& next : neighbours(unit))
                open.push_back(next);
        }
        return reached;
    }

private:
    std::vector<Unit> neighbours(Unit unit) const
    {
        std::vector<Unit> next;
        const auto [chain, place] = unit;
        const qsizetype size = std::ssize(m_backbone.chains()[std::size_t(chain)].units);
        if (place > 0 && !(chain == m_chain && place == m_cut))
            next.push_back({chain, place - 1});
        if (place + 1 < size && !(chain == m_chain && place + 1 == m_cut))
            next.push_back({chain, place + 1});
        for (const BackboneLink& link : m_backbone.links()) {
            const Unit first = {link.firstChain, link.firstUnit};
            const Unit second = {link.secondChain, link.secondUnit};
            if (unit == first)
                next.push_back(second);
            if (unit == second)
                next.push_back(first);
        }
        return next;
    }

    const Backbone& m_backbone;
    qsizetype m_chain;
    qsizetype m_cut;
};

/// Where the groups of an ion are: the mass that they add, and how many can lose what by name.
struct HeldGroups
{
    double mass = 0.0;
    std::map<QString, int> losses;

    friend auto operator<=>(const HeldGroups& left, const HeldGroups& right) = default;
};

/// An ion of a peptide or oligonucleotide series before series, loss and charge: its own units, and
/// the whole of whatever hangs on them.
class IonBySearch
{
public:
    /// The ion with `number` units from the left or from the right.
    IonBySearch(const Backbone& backbone, qsizetype chain, qsizetype number, bool isLeft)
        : m_backbone(backbone)
        , m_chain(chain)
        , m_isLeft(isLeft)
    {
        const qsizetype size = std::ssize(own().units);
        m_cut = isLeft ? number : size - number;
        const BrokenMolecule molecule(backbone, chain, m_cut);
        m_units = molecule.unitsWith({chain, isLeft ? 0 : size - 1});
        m_arises = !m_units.contains({chain, isLeft ? size - 1 : 0});
    }

    /// Whether the cut leaves two pieces.
    bool arises() const { return m_arises; }

    /// What the ion weighs without groups that may be elsewhere, and without a series.
    double mass() const
    {
        double sum = ownEnd();
        for (const auto& [chain, place] : m_units)
            sum += unitMass(chain, place);
        for (const BackboneLink& link : m_backbone.links())
            sum += m_units.contains({link.firstChain, link.firstUnit}) ? link.masses.monoisotopic
                                                                       : 0.0;
        for (const qsizetype chain : otherChains())
            sum += endsOf(m_backbone.chains()[std::size_t(chain)]);
        return sum;
    }

    /// The linkage or base at the cut, which series take or leave.
    double linkageAtCut() const { return own().linkages[std::size_t(m_cut - 1)].monoisotopic; }
    double baseAtCut() const { return own().bases[std::size_t(m_cut - 1)].monoisotopic; }

    /// Every way in which the ion's own open groups sit in it or not.
    std::set<HeldGroups> waysToHold() const
    {
        std::set<HeldGroups> ways = {fixedGroups()};
        for (const OpenGroup& open : own().open) {
            std::set<HeldGroups> more;
            for (const qsizetype unit : open.units) {
                for (HeldGroups way : ways) {
                    if (m_units.contains({m_chain, unit}))
                        hold(open.group, open.group.masses.monoisotopic, &way);
                    more.insert(way);
                }
            }
            ways = more;
        }
        return ways;
    }

    /// How many of the ion's units have one of these letters.
    qsizetype count(const QString& letters) const
    {
        return std::count_if(m_units.begin(), m_units.end(), [&](const auto& unit) {
            return letters.contains(
                m_backbone.chains()[std::size_t(unit.first)].letters[unit.second]);
        });
    }

private:
    const BackboneChain& own() const { return m_backbone.chains()[std::size_t(m_chain)]; }

    std::set<qsizetype> otherChains() const
    {
        std::set<qsizetype> chains;
        for (const auto& [chain, place] : m_units)
            chains.insert(chain);
        chains.erase(m_chain);
        return chains;
    }

    /// A unit with the linkage behind it, unless that is the one that is cut.
    double unitMass(qsizetype chain, qsizetype place) const
    {
        const BackboneChain& units = m_backbone.chains()[std::size_t(chain)];
        const bool isAtCut = chain == m_chain && place + 1 == m_cut;
        const double linkage = units.linkages.empty() || isAtCut
                                   ? 0.0
                                   : units.linkages[std::size_t(place)].monoisotopic;
        return units.units[std::size_t(place)].monoisotopic + linkage;
    }

    /// What the end of the ion weighs beyond the hydrogen or hydroxyl that its series counts on.
    double ownEnd() const
    {
        const BreakMasses& breaks = m_backbone.breaks();
        if (m_isLeft)
            return own().leftGroup.monoisotopic -
                   (own().hasLeftEnd ? 0.0 : breaks.hydrogen.monoisotopic);
        return own().rightGroup.monoisotopic -
               (own().hasRightEnd ? 0.0 : (breaks.water - breaks.hydrogen).monoisotopic);
    }

    double endsOf(const BackboneChain& chain) const
    {
        const BreakMasses& breaks = m_backbone.breaks();
        double sum = chain.leftGroup.monoisotopic + chain.rightGroup.monoisotopic;
        sum += chain.hasLeftEnd ? breaks.hydrogen.monoisotopic : 0.0;
        sum += chain.hasRightEnd ? (breaks.water - breaks.hydrogen).monoisotopic : 0.0;
        return sum;
    }

    static void hold(const BackboneGroup& group, double mass, HeldGroups* held)
    {
        held->mass += mass;
        for (const NeutralLoss& loss : group.losses)
            ++held->losses[loss.name];
    }

    /// Groups on known units, and those of other chains, wherever they sit there.
    HeldGroups fixedGroups() const
    {
        HeldGroups held;
        for (qsizetype chain = 0; chain < std::ssize(m_backbone.chains()); ++chain) {
            for (const PlacedGroup& placed : m_backbone.chains()[std::size_t(chain)].groups) {
                if (m_units.contains({chain, placed.unit}))
                    hold(placed.group, 0.0, &held);
            }
        }
        for (const qsizetype chain : otherChains()) {
            for (const OpenGroup& open : m_backbone.chains()[std::size_t(chain)].open)
                hold(open.group, open.group.masses.monoisotopic, &held);
        }
        return held;
    }

    const Backbone& m_backbone;
    qsizetype m_chain;
    bool m_isLeft;
    qsizetype m_cut = 0;
    bool m_arises = false;
    std::set<BrokenMolecule::Unit> m_units;
};

} // namespace ions
