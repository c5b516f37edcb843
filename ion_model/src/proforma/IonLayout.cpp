#include "proforma/IonLayout.h"

#include "proforma/ChainSites.h"
#include "proforma/LabelGroups.h"
#include "proforma/ModificationText.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace ions {

namespace {

using Failure = std::optional<Error>;

constexpr qint64 mostOpenParts = 1000;
constexpr std::size_t mostRules = 1000;
constexpr qsizetype mostStackedParts = 100000; // what rules may add where others have already

} // namespace

/// Goes through the lists of an ion and weighs what it finds.
class LayoutBuilder
{
public:
    LayoutBuilder(const Peptidoform& peptidoform, const PeptidoformIon& ion,
                  const PartWeigher& weigher)
        : m_peptidoform(peptidoform)
        , m_ion(ion)
        , m_weigher(weigher)
    {
    }

    Parsed<IonLayout> build()
    {
        Failure failure = m_weigher.refusal();
        for (m_chainIndex = 0; !failure && m_chainIndex < m_ion.chains.size(); ++m_chainIndex)
            failure = layChain();
        if (!failure)
            failure = layGroups();
        return failure ? Parsed<IonLayout>(*std::move(failure)) : std::move(m_layout);
    }

private:
    const PeptidoformChain& chain() const { return m_ion.chains[m_chainIndex]; }
    qsizetype lastUnit() const { return chain().residues.size() - 1; }

    Failure layChain()
    {
        if (chain().residues.isEmpty())
            return at(Error{u"expected a residue"_s}, {}, -1);
        m_residueCount += chain().residues.size();
        ChainSites sites(chain());
        Failure failure = layFixed(&sites);
        if (!failure)
            failure = layResidues(sites);
        if (!failure)
            failure = layPlaced();
        return failure ? failure : layOpen(sites);
    }

    /// Adds the place to a refusal.
    Error at(Error error, TextPosition position, qsizetype residue) const
    {
        if (error.position < 0)
            error.position = position.index;
        error.chain = qsizetype(m_chainIndex);
        error.residue = residue;
        return error;
    }

    Failure layResidues(const ChainSites& sites)
    {
        for (qsizetype i = 0; i < chain().residues.size(); ++i) {
            const char16_t letter = chain().residues[i].unicode();
            const TextPosition position{chain().positions.of(i)};
            if (letter == u'X' && !sites.isTaken(i))
                return at({u"X weighs nothing known without a modification"_s}, position, i);
            const auto index = std::size_t(letter - u'A');
            if (index >= m_isWeighed.size())
                return at({u"expected a capital letter from A to Z"_s}, position, i);
            if (m_isWeighed[index])
                continue;
            Parsed<PartWeight> weight = m_weigher.residue(letter);
            if (!weight)
                return at(weight.error(), position, i);
            m_layout.m_residues[index] = *std::move(weight);
            m_isWeighed[index] = true;
        }
        return {};
    }

    /// Rules for all ions: each looks at what is written, not at what other rules add.
    Failure layFixed(ChainSites* sites)
    {
        const ChainSites written = *sites;
        if (m_peptidoform.fixed.size() > mostRules)
            return Error{u"expected at most 1000 fixed modifications"_s};
        for (const FixedModification& rule : m_peptidoform.fixed) {
            Parsed<PartWeight> weight = m_weigher.modification(rule.modification);
            if (!weight)
                return weight.error();
            layRule(rule, *weight, written, sites);
            if (m_fixedParts > m_residueCount + mostStackedParts)
                return Error{u"expected fewer fixed modifications of the same residues"_s,
                             rule.modification.position.index};
        }
        return {};
    }

    void layRule(const FixedModification& rule, const PartWeight& weight, const ChainSites& written,
                 ChainSites* sites)
    {
        const MeantSites places = written.meant(rule.places);
        if (places.isLeftEnd && !written.isLeftEndTaken())
            layFixedPart(LaidPlace::LeftEnd, 0, weight, rule.modification);
        if (places.isRightEnd && !written.isRightEndTaken())
            layFixedPart(LaidPlace::RightEnd, lastUnit(), weight, rule.modification);
        for (qsizetype i = 0; i <= lastUnit(); ++i) {
            if (places.isResidue(chain().residues[i]) && !written.isTaken(i)) {
                layFixedPart(LaidPlace::Unit, i, weight, rule.modification);
                sites->take(i);
            }
        }
    }

    void layFixedPart(LaidPlace place, qsizetype unit, const PartWeight& weight,
                      const Modification& modification)
    {
        lay(place, unit, weight, modification);
        ++m_fixedParts;
    }

    LaidPart& lay(LaidPlace place, qsizetype unit, PartWeight weight,
                  const Modification& modification)
    {
        LaidPart& part = m_layout.m_parts.emplace_back();
        part.place = place;
        part.chain = m_chainIndex;
        part.unit = unit;
        part.weight = std::move(weight);
        part.position = modification.position;
        part.modification = &modification;
        return part;
    }

    Failure layPlaced()
    {
        for (const Modification& modification : chain().leftEnd) {
            if (Failure failure = layOne(modification, LaidPlace::LeftEnd, 0))
                return failure;
        }
        for (const ResidueModification& one : chain().modifications) {
            if (Failure failure = layOne(one.modification, LaidPlace::Unit, one.residue))
                return failure;
        }
        for (const Modification& modification : chain().rightEnd) {
            if (Failure failure = layOne(modification, LaidPlace::RightEnd, lastUnit()))
                return failure;
        }
        for (const Modification& modification : chain().labile) {
            if (Failure failure = layOne(modification, LaidPlace::Labile, 0))
                return failure;
        }
        return {};
    }

    Failure layOne(const Modification& modification, LaidPlace place, qsizetype unit)
    {
        if (modification.label.kind != ModificationLabel::None)
            return join({m_chainIndex, place, unit, &modification}, {unit}, 1);
        Parsed<PartWeight> weight = m_weigher.modification(modification);
        if (!weight)
            return at(weight.error(), modification.position, unit);
        lay(place, unit, *std::move(weight), modification);
        return {};
    }

    Failure layOpen(const ChainSites& sites)
    {
        for (const UnlocalisedModification& one : chain().unlocalised) {
            if (Failure failure = layOpen(one.modification, sites, 0, lastUnit(), one.count))
                return failure;
        }
        for (const ResidueRange& range : chain().ranges) {
            for (const Modification& modification : range.modifications) {
                if (Failure failure = layOpen(modification, sites, range.first, range.last, 1))
                    return failure;
            }
        }
        return {};
    }

    /// A modification somewhere from one unit to another. With a label it is where the label is; a
    /// range is one of its places, all of the chain only where no other place is named.
    Failure layOpen(const Modification& modification, const ChainSites& sites, qsizetype first,
                    qsizetype last, int count)
    {
        std::vector<qsizetype> units = sites.openSites(modification.placement, first, last);
        const bool isEverywhere = first == 0 && last == lastUnit();
        if (modification.label.kind != ModificationLabel::None) {
            const LaidMention mention{m_chainIndex, LaidPlace::Open, first, &modification,
                                      isEverywhere};
            if (!isEverywhere)
                return join(mention, units, count);
            m_labels.of(modification.label, m_chainIndex).everywhere = std::move(units);
            return join(mention, {}, count);
        }
        Parsed<PartWeight> weight = m_weigher.modification(modification);
        if (!weight)
            return at(weight.error(), modification.position, first);
        LaidPart& part = lay(LaidPlace::Open, 0, *std::move(weight), modification);
        part.units = std::move(units);
        part.count = count;
        part.isEverywhere = isEverywhere;
        return {};
    }

    /// Adds a mention of a label to those met so far.
    Failure join(const LaidMention& mention, const std::vector<qsizetype>& units, int count)
    {
        const Modification& modification = *mention.modification;
        LabelGroup& group = m_labels.of(modification.label, m_chainIndex);
        group.mentions.push_back(mention);
        for (const qsizetype unit : units)
            group.sites.emplace_back(m_chainIndex, unit);
        if (modification.tags.empty())
            return {};
        Parsed<PartWeight> weight = m_weigher.modification(modification);
        const Failure failure = weight ? group.describe(modification, *std::move(weight), count)
                                       : Failure(weight.error());
        return failure ? at(*failure, modification.position, mention.unit) : Failure();
    }

    Failure layGroups()
    {
        for (LabelGroup& group : m_labels.groups()) {
            const LaidMention& first = group.mentions.front();
            const ModificationLabel& label = first.modification->label;
            m_chainIndex = first.chain;
            if (!group.description) {
                const QString text = labelText({label.kind, label.name, {}});
                return at({u"no modification is described for the label "_s + text},
                          first.modification->position, first.unit);
            }
            std::sort(group.sites.begin(), group.sites.end());
            if (label.kind == ModificationLabel::Ambiguous)
                layAmbiguous(std::move(group));
            else
                m_layout.m_links.push_back({std::move(group.weight), std::move(group.sites),
                                            group.description->position, group.description,
                                            std::move(group.mentions)});
        }
        return {};
    }

    void layAmbiguous(LabelGroup group)
    {
        LaidPart& part = lay(LaidPlace::Open, 0, std::move(group.weight), *group.description);
        part.count = group.count;
        part.mentions = std::move(group.mentions);
        for (const auto& [chain, unit] : group.sites)
            part.units.push_back(unit);
        part.units.erase(std::unique(part.units.begin(), part.units.end()), part.units.end());
        part.isEverywhere = group.everywhere.has_value();
        if (part.units.empty() && group.everywhere)
            part.units = *std::move(group.everywhere);
    }

    const Peptidoform& m_peptidoform;
    const PeptidoformIon& m_ion;
    const PartWeigher& m_weigher;
    std::size_t m_chainIndex = 0;
    qsizetype m_residueCount = 0; ///< Of the chains so far.
    qsizetype m_fixedParts = 0;   ///< What rules have added to them.
    std::array<bool, 26> m_isWeighed{};
    LabelGroups m_labels;
    IonLayout m_layout;
};

Parsed<IonLayout> IonLayout::of(const Peptidoform& peptidoform, qsizetype ion,
                                const PartWeigher& weigher)
{
    if (ion < 0 || ion >= std::ssize(peptidoform.ions))
        return Error{u"expected the number of an ion, from 0"_s};
    return LayoutBuilder(peptidoform, peptidoform.ions[std::size_t(ion)], weigher).build();
}

Failure IonLayout::openRefusal() const
{
    qint64 count = 0;
    for (const LaidPart& part : m_parts) {
        if (part.place != LaidPlace::Open)
            continue;
        const auto refusal = [&part](const QString& message) {
            return Error{message, part.position.index, qsizetype(part.chain)};
        };
        if (part.units.empty())
            return refusal(u"expected a place for this modification: all residues that it may sit "
                           "on bear one already"_s);
        count += part.count;
        if (count > mostOpenParts)
            return refusal(u"expected at most 1000 modifications of unknown place"_s);
    }
    return {};
}

} // namespace ions
