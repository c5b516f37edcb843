#include "FragmentIons.h"
#include "fragments/CutSegments.h"
#include "fragments/GroupIons.h"
#include "fragments/HeldOpenGroups.h"
#include "fragments/PartSum.h"
#include "fragments/SeriesMasses.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>

using namespace Qt::StringLiterals;

namespace ions {

namespace {

constexpr double sameIon = 1e-6;

Error anotherBackbone()
{
    return {u"expected the backbone that the ions were made of"_s};
}

/// Adds up one ion of a run, without what it loses.
class IonParts
{
public:
    IonParts(const Backbone& backbone, const IonRun& run, qsizetype number, PartSum& sum)
        : m_backbone(backbone)
        , m_run(run)
        , m_number(number)
        , m_sum(sum)
    {
    }

    void addAll()
    {
        m_sum.addBreaks({.hydrogen = m_run.hydrogens});
        if (m_run.series == Series::Oxonium || m_run.series == Series::Reporter) {
            addLone();
            return;
        }
        if (isOfMolecule(m_run.series)) {
            addPrecursor();
            if (m_run.series == Series::GlycanY)
                removeSugars();
            return;
        }
        if (m_run.chain >= m_backbone.chains().size() || !arises(m_run.series, chain().polymer)) {
            m_sum.refuse(anotherBackbone());
            return;
        }
        m_sum.addBreaks(seriesGroups(m_run.series, chain().polymer));
        if (isLeftSeries(m_run.series) || isRightSeries(m_run.series))
            addTerminal();
        else
            addMiddle();
    }

private:
    const BackboneChain& chain() const { return m_backbone.chains()[m_run.chain]; }
    qsizetype size() const { return std::ssize(chain().units); }

    void addPrecursor()
    {
        for (qsizetype i = 0; i < std::ssize(m_backbone.chains()); ++i) {
            m_sum.addChain(i);
            if (m_run.variant == 1)
                m_sum.addLabileGroups(i, -1);
        }
        for (qsizetype i = 0; i < std::ssize(m_backbone.links()); ++i)
            m_sum.addLink(i);
    }

    void addLone()
    {
        const auto ions = loneIons(m_backbone, m_run.series);
        if (m_number < 1 || m_number > std::ssize(ions)) {
            m_sum.refuse(anotherBackbone());
            return;
        }
        const LoneIon& ion = ions[std::size_t(m_number - 1)];
        m_sum.add(ion.composition, 1);
        m_sum.addBreaks(ion.lost, -1);
    }

    void removeSugars()
    {
        const auto cuts = glycanCuts(m_backbone);
        if (cuts && m_run.start >= 1 && m_run.start <= cuts->size())
            m_sum.add((*cuts)[m_run.start - 1].composition, -1);
        else
            m_sum.refuse(anotherBackbone());
    }

    void addTerminal()
    {
        if (m_number < 1 || m_number >= size()) {
            m_sum.refuse(anotherBackbone());
            return;
        }
        const bool isLeft = isLeftSeries(m_run.series);
        if (isLeft)
            addLeft();
        else
            addRight();
        addOpenGroups();
        addSide(isLeft ? m_number : size() - m_number, isLeft);
    }

    void addLeft()
    {
        const PartAtBreak part = partAtBreak(m_run.series, chain().polymer);
        m_sum.addLeftGroup(m_run.chain);
        m_sum.addUnits(m_run.chain, 0, m_number);
        m_sum.addLinkages(m_run.chain, 0,
                          part == PartAtBreak::WithLinkage ? m_number : m_number - 1);
        if (part == PartAtBreak::WithoutBase)
            m_sum.removeBase(m_run.chain, m_number - 1);
    }

    void addRight()
    {
        const PartAtBreak part = partAtBreak(m_run.series, chain().polymer);
        const qsizetype begin = size() - m_number;
        m_sum.addUnits(m_run.chain, begin, size());
        m_sum.addLinkages(m_run.chain, part == PartAtBreak::WithLinkage ? begin - 1 : begin,
                          size());
        m_sum.addRightGroup(m_run.chain);
    }

    /// What hangs on one side of the cut.
    void addSide(qsizetype cut, bool isLeft)
    {
        const auto segments = cutSegments(m_backbone, m_run.chain);
        const auto segment = std::find_if(segments.begin(), segments.end(), [cut](const auto& s) {
            return s.firstCut <= cut && cut <= s.lastCut;
        });
        if (segment == segments.end()) {
            m_sum.refuse(anotherBackbone());
            return;
        }
        const CutSide& side = isLeft ? segment->left : segment->right;
        for (const qsizetype other : side.chains)
            m_sum.addChain(other);
        for (const qsizetype link : side.links)
            m_sum.addLink(link);
    }

    void addMiddle()
    {
        const bool isInternal = m_run.series == Series::Internal;
        const qsizetype start = isInternal ? qsizetype(m_run.start) - 1 : m_number - 1;
        if (start < 0 || start >= m_number || m_number > size()) {
            m_sum.refuse(anotherBackbone());
            return;
        }
        m_sum.addUnits(m_run.chain, start, m_number);
        addOpenGroups();
    }

    void addOpenGroups()
    {
        const auto classes = heldOpenGroups(m_backbone, m_run, m_number);
        if (!classes) {
            m_sum.refuse(anotherBackbone());
            return;
        }
        for (const auto& [alike, held, certain] : *classes)
            addHeld(alike.groups, held);
    }

    /// Groups of one mass are counted, so that only one composition tells what some of them are.
    void addHeld(const std::vector<const OpenGroup*>& groups, int count)
    {
        const OpenGroup& first = *groups.front();
        const bool isOneKind = std::all_of(groups.begin(), groups.end(), [&](const OpenGroup* o) {
            return o->group.composition == first.group.composition;
        });
        if (isOneKind && count > 0) {
            m_sum.addOpenGroup(m_run.chain, first, count);
        } else if (std::size_t(count) == groups.size()) {
            for (const OpenGroup* const open : groups)
                m_sum.addOpenGroup(m_run.chain, *open);
        } else if (count > 0) {
            m_sum.refuse({u"expected open groups of one mass to have one composition"_s, -1,
                          m_run.chain, first.units.front()});
        }
    }

    const Backbone& m_backbone;
    const IonRun& m_run;
    qsizetype m_number;
    PartSum& m_sum;
};

/// Where the name of a loss ends: before a sign that no digit follows, which starts the next one.
qsizetype lossEnd(QStringView label)
{
    for (qsizetype i = 1; i < label.size(); ++i) {
        const bool isCount = i + 1 < label.size() && label[i + 1].isDigit();
        if (label[i] == u'-' && !isCount)
            return i;
    }
    return label.size();
}

/// What a label such as "-H2O-NH3" takes away.
Parsed<Composition> lossOf(QStringView label)
{
    Composition sum;
    while (!label.isEmpty()) {
        const qsizetype end = lossEnd(label);
        const QStringView name = label.first(end).sliced(1);
        const Parsed<Composition> loss = Composition::read(name);
        if (!loss || !sum.add(*loss))
            return Error{u"expected a loss named by its formula, not "_s + name};
        label = label.sliced(end);
    }
    return sum;
}

/// Whether a neutral molecule has this m/z at this charge.
bool weighs(const Composition& neutral, double mz, int charge, const Backbone& backbone,
            const ResidueTable& residues)
{
    const Parsed<Masses> masses = residues.atoms().weigh(neutral);
    const double mass = mz * std::abs(charge) - charge * backbone.breaks().proton;
    return masses && std::abs(masses->monoisotopic - mass) <= sameIon;
}

} // namespace

Parsed<IonComposition> FragmentIons::composition(const Backbone& backbone,
                                                 const ResidueTable& residues, qsizetype ion) const
{
    const auto [index, offset] = runOf(ion);
    if (ion < 0 || index == qsizetype(runs().size()))
        return Error{u"expected the index of an ion"_s};
    const IonRun run = runs()[std::size_t(index)];
    const bool hasLostSugars = run.series == Series::GlycanY;
    const Parsed<Composition> loss = lossOf(hasLostSugars ? QStringView() : m_losses[run.loss]);
    if (!loss)
        return loss.error();
    PartSum sum(backbone, residues);
    IonParts(backbone, run, qsizetype(run.firstNumber) + offset, sum).addAll();
    if (sum.refusal())
        return *sum.refusal();
    // Losses are natural unless whoever made them labelled them with the molecule.
    Composition labelled = *loss;
    sum.label(labelled);
    for (const Composition& lost : {*loss, labelled}) {
        Composition neutral = sum.sum();
        if (neutral.add(lost, -1) &&
            weighs(neutral, m_mz[std::size_t(ion)], run.charge, backbone, residues))
            return IonComposition{neutral, run.charge};
    }
    return anotherBackbone();
}

} // namespace ions
