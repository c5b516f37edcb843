#include "proforma/ChainSites.h"
#include "proforma/PeptidoformDraft.h"

#include <QSet>

#include <algorithm>
#include <utility>
#include <vector>

using namespace Qt::StringLiterals;

namespace ions {

namespace {

using Failure = std::optional<Error>;

/// Places in their order, each once.
QList<MoleculePosition> placesOf(const chem::Modification& open)
{
    QSet<MoleculePosition> known;
    QList<MoleculePosition> places;
    for (const MoleculePosition& position : open.possibleChainLocations()) {
        if (known.contains(position))
            continue;
        known.insert(position);
        places.append(position);
    }
    return places;
}

/// A modification of unknown place, named.
struct NamedOpen
{
    Modification modification;
    QList<MoleculePosition> places;
    bool isByRule = false; ///< Whether its places need not be named.
    bool isFront = false;  ///< Whether it is described in front of the chain.

    /// Where it is described.
    MoleculePosition place() const { return isFront ? MoleculePosition(-1, -1) : places.first(); }
};

/// Writes modifications of unknown place, in the order in which the text describes them: so they
/// have the labels that they are given when it is read and written again.
class OpenWriter
{
public:
    explicit OpenWriter(PeptidoformDraft* draft)
        : m_draft(*draft)
    {
    }

    Failure writeAll()
    {
        std::vector<NamedOpen> all;
        for (const chem::Modification& open : m_draft.content().open) {
            Parsed<NamedOpen> named = name(open);
            if (!named)
                return named.error();
            all.push_back(*std::move(named));
        }
        std::stable_sort(all.begin(), all.end(), [](const NamedOpen& left, const NamedOpen& right) {
            return left.place() < right.place();
        });
        for (const NamedOpen& open : all) {
            if (Failure failure = write(open))
                return failure;
        }
        return {};
    }

private:
    Parsed<NamedOpen> name(const chem::Modification& open)
    {
        const QList<MoleculePosition> places = placesOf(open);
        const chem::MoleculeEntity group = open.entity();
        Parsed<Modification> named = m_draft.names().of(group, {Vocabulary::Unimod});
        if (!named)
            return placedAt(named.error(), places.value(0, {-1, -1}));
        Modification modification = *std::move(named);
        if (places.isEmpty() && m_draft.chainCount() > 1)
            return Error{u"expected a place for a modification, as there are several chains"_s};
        if (modification.label.kind != ModificationLabel::Ambiguous)
            modification.label = {};
        const bool hasRule = places.isEmpty() || isByRule(modification, places);
        const bool isFront = hasRule || isInFront(modification, group);
        return NamedOpen{std::move(modification), places, hasRule, isFront};
    }

    Failure write(const NamedOpen& open)
    {
        if (open.isByRule)
            return addUnlocalised(open.modification, open.places);
        return writePlaces(open.modification, open.places, open.isFront);
    }

    static bool isLabelled(const Modification& modification)
    {
        return modification.label.kind != ModificationLabel::None;
    }

    /// Whether the places are those that the notation gives to a modification of unknown place.
    bool isByRule(const Modification& modification, const QList<MoleculePosition>& places) const
    {
        if (isLabelled(modification))
            return false;
        const int index = places.first().first;
        const PeptidoformChain& chain = m_draft.chain(index);
        const qsizetype first = m_draft.content().chains[std::size_t(index)].firstUnit();
        QList<MoleculePosition> open;
        for (const qsizetype unit :
             ChainSites(chain).openSites(modification.placement, 0, chain.residues.size() - 1))
            open.append({index, int(unit + first)});
        return open == places;
    }

    /// Whether the last one in front of the chain is the same, which is then one more.
    bool isCounted(const Modification& modification, const QList<MoleculePosition>& places,
                   std::vector<UnlocalisedModification>* unlocalised) const
    {
        const bool isSame = !unlocalised->empty() &&
                            unlocalised->back().modification == modification &&
                            (!isLabelled(modification) || places == m_lastPlaces);
        if (isSame)
            ++unlocalised->back().count;
        return isSame;
    }

    Failure addUnlocalised(const Modification& modification, const QList<MoleculePosition>& places)
    {
        const int chain = places.value(0).first;
        auto& unlocalised = m_draft.chain(chain).unlocalised;
        if (isCounted(modification, places, &unlocalised))
            return {};
        unlocalised.push_back({m_draft.labels().withOwnLabel(modification, chain), 1});
        m_lastPlaces = places;
        return {};
    }

    Failure writePlaces(Modification modification, const QList<MoleculePosition>& places,
                        bool isFront)
    {
        const int chain = places.first().first;
        auto& unlocalised = m_draft.chain(chain).unlocalised;
        if (isFront && isCounted(modification, places, &unlocalised))
            return {};
        modification = m_draft.labels().withOwnLabel(modification, chain);
        if (!isLabelled(modification))
            modification.label = m_draft.labels().fresh(ModificationLabel::Ambiguous);
        if (isFront) {
            unlocalised.push_back({modification, 1});
            m_lastPlaces = places;
        }
        for (const MoleculePosition& position : places) {
            const bool isDescribed = !isFront && position == places.first();
            if (Failure failure = m_draft.add(
                    position, isDescribed ? modification : bareLabel(modification.label)))
                return failure;
        }
        return {};
    }

    PeptidoformDraft& m_draft;
    QList<MoleculePosition> m_lastPlaces; ///< Of the last modification in front of a chain.
};

} // namespace

Failure writeOpenGroups(PeptidoformDraft* draft)
{
    return OpenWriter(draft).writeAll();
}

} // namespace ions
