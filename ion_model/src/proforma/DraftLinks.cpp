#include "masses/EntityMasses.h"
#include "proforma/PeptidoformDraft.h"

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace ions {

namespace {

using Failure = std::optional<Error>;

bool isBridge(const ModificationLabel& label)
{
    return label.kind == ModificationLabel::CrossLink || label.kind == ModificationLabel::Branch;
}

/// Writes links as bridges, in their order.
class LinkWriter
{
public:
    explicit LinkWriter(PeptidoformDraft* draft)
        : m_draft(*draft)
        , m_content(draft->content())
        , m_names(draft->names())
    {
    }

    Failure write(qsizetype index)
    {
        const auto [first, second] = m_content.links[index].connection();
        const Parsed<MoleculePosition> firstEnd = linkEnd(first, index);
        if (!firstEnd)
            return firstEnd.error();
        const Parsed<MoleculePosition> secondEnd = linkEnd(second, index);
        if (!secondEnd)
            return secondEnd.error();
        const chem::MoleculeEntity bridge = m_content.links[index].entity();
        if (const auto ends = namedEnds(bridge, *firstEnd))
            return addEnds(*firstEnd, ends->first, *secondEnd, ends->second);
        Parsed<Modification> described =
            m_names.of(bridge, {Vocabulary::Xlmod, Vocabulary::Unimod});
        if (!described)
            return placedAt(described.error(), first);
        Modification modification = *std::move(described);
        modification.label = m_draft.labels().fresh(ModificationLabel::CrossLink);
        return addEnds(*firstEnd, modification, *secondEnd, bareLabel(modification.label));
    }

private:
    /// What stands at the two ends of a link by its name and code, if these tell the truth. Nothing
    /// at the first end where an earlier link has written it.
    std::optional<std::pair<Modification, Modification>>
    namedEnds(const chem::MoleculeEntity& bridge, const MoleculePosition& firstEnd)
    {
        const auto first = readModification(bridge.name());
        const auto second = readModification(bridge.code());
        const WeighedAtoms weight = m_names.weighed(bridge);
        if (!first || !second || first->tags.empty() || !isBridge(first->label) ||
            second->label != first->label)
            return {};
        const std::pair start{firstEnd, *first};
        const bool isMore = std::find(m_starts.begin(), m_starts.end(), start) != m_starts.end();
        if (isMore && isSameMass(weight.masses, {}))
            return std::pair(Modification(), *second);
        const bool isTrue = m_names.isSame(*first, weight) &&
                            (second->tags.empty() || m_names.isSame(*second, weight));
        if (!isTrue || !m_draft.labels().take(first->label, firstEnd.first))
            return {};
        m_starts.push_back(start);
        return std::pair(*first, *second);
    }

    Failure addEnds(const MoleculePosition& firstEnd, const Modification& first,
                    const MoleculePosition& secondEnd, const Modification& second)
    {
        const bool isNothing = first == Modification();
        if (Failure failure = isNothing ? Failure() : m_draft.add(firstEnd, first))
            return failure;
        return m_draft.add(secondEnd, second);
    }

    Parsed<MoleculePosition> linkEnd(const MoleculePosition& position, qsizetype link) const
    {
        if (position.first < 0 || position.first >= std::ssize(m_content.chains))
            return refusalAt(u"a link between residues"_s, position);
        const MoleculeChain& chain = m_content.chains[std::size_t(position.first)];
        MoleculePosition end = position;
        if (!chain.hasLeftEnd) {
            const auto linked =
                m_content.lastCut.linkedResidue(link, position.second, chain.isPiece);
            if (!linked)
                return refusalAt(u"a link whose place does not depend on a cut"_s, position);
            end.second = int(*linked);
        }
        return m_content.exists(end) ? Parsed<MoleculePosition>(end)
                                     : refusalAt(u"a link between residues"_s, position);
    }

    PeptidoformDraft& m_draft;
    const MoleculeContent& m_content;
    const GroupNames& m_names;
    std::vector<std::pair<MoleculePosition, Modification>> m_starts; ///< Of links by name.
};

} // namespace

Failure writeLinks(PeptidoformDraft* draft)
{
    LinkWriter writer(draft);
    Failure failure;
    for (qsizetype link = 0; !failure && link < draft->content().links.size(); ++link)
        failure = writer.write(link);
    return failure;
}

} // namespace ions
