#include "ProForma.h"
#include "masses/EntityMasses.h"
#include "proforma/ChainSites.h"
#include "proforma/GroupNames.h"
#include "proforma/ModificationText.h"
#include "proforma/MoleculeContent.h"

#include <QSet>

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace ions {

namespace {

using Failure = std::optional<Error>;
using Position = MoleculePosition;

constexpr std::size_t mostAtAnEnd = 2;

const std::vector<Vocabulary>& ofGroups()
{
    static const std::vector<Vocabulary> vocabularies = {Vocabulary::Unimod};
    return vocabularies;
}

const std::vector<Vocabulary>& ofLinks()
{
    static const std::vector<Vocabulary> vocabularies = {Vocabulary::Xlmod, Vocabulary::Unimod};
    return vocabularies;
}

bool isBridge(const ModificationLabel& label)
{
    return label.kind == ModificationLabel::CrossLink || label.kind == ModificationLabel::Branch;
}

/// Writes what a molecule says as a peptidoform.
class PeptidoformWriter
{
public:
    PeptidoformWriter(const MoleculeContent& content, const GroupNames& names,
                      const PartWeigher& weigher)
        : m_content(content)
        , m_names(names)
        , m_weigher(weigher)
        , m_chains(content.chains.size())
    {
    }

    Parsed<std::vector<PeptidoformChain>> write()
    {
        noteLabels();
        for (qsizetype chain = 0; chain < std::ssize(m_content.chains); ++chain) {
            if (Failure failure = writeChain(chain))
                return *std::move(failure);
        }
        for (qsizetype link = 0; link < m_content.links.size(); ++link) {
            if (Failure failure = writeLink(link))
                return *std::move(failure);
        }
        sortModifications();
        for (const chem::Modification& modification : m_content.open) {
            if (Failure failure = writeOpen(modification))
                return *std::move(failure);
        }
        sortModifications();
        return std::move(m_chains);
    }

private:
    /// Labels that names have, which are given to nothing else.
    void noteLabels()
    {
        for (const chem::MoleculeEntity& group : m_content.groups()) {
            if (const auto named = readModification(group.name()))
                m_known.insert(modificationText(bareLabel(named->label)));
        }
    }

    ModificationLabel freshLabel(ModificationLabel::Kind kind)
    {
        const QString start = kind == ModificationLabel::Ambiguous ? u"g"_s : QString();
        for (int number = 1;; ++number) {
            const ModificationLabel label{kind, start + QString::number(number), {}};
            const QString text = modificationText(bareLabel(label));
            if (m_known.contains(text))
                continue;
            m_known.insert(text);
            return label;
        }
    }

    /// Whether nothing has the label so far; from now on something has.
    bool take(const ModificationLabel& label)
    {
        const QString text = modificationText(bareLabel(label));
        const bool isFree = !m_taken.contains(text);
        m_taken.insert(text);
        return isFree;
    }

    Failure writeChain(qsizetype index)
    {
        const MoleculeChain& chain = m_content.chains[std::size_t(index)];
        for (qsizetype i = 0; i < std::ssize(chain.pieces); ++i) {
            const MoleculePiece& piece = chain.pieces[std::size_t(i)];
            if (piece.letter != 0)
                m_chains[std::size_t(index)].residues.append(QChar(piece.letter));
        }
        Failure failure;
        for (qsizetype i = 0; !failure && i < std::ssize(chain.pieces); ++i)
            failure = writePiece(chain, {int(index), int(i)});
        const auto missing = [](bool isLeft) {
            Composition end;
            static_cast<void>(end.add(plainEnd(isLeft), -1));
            return GroupNames::formula(end);
        };
        if (!chain.hasLeftEnd)
            m_chains[std::size_t(index)].leftEnd.push_back(missing(true));
        if (!chain.hasRightEnd)
            m_chains[std::size_t(index)].rightEnd.push_back(missing(false));
        return failure;
    }

    Failure writePiece(const MoleculeChain& chain, const Position& position)
    {
        const MoleculePiece& piece = chain.pieces[std::size_t(position.second)];
        for (const chem::Modification& group : piece.groups) {
            Parsed<Modification> modification = m_names.of(group.entity(), ofGroups());
            if (!modification)
                return at(modification.error(), position);
            if (modification->label.kind != ModificationLabel::None && !take(modification->label))
                modification = withoutLabel(*modification);
            if (Failure failure = add(position, *modification))
                return failure;
        }
        return writeRest(piece, position);
    }

    /// What the residue or end weighs beside its letter.
    Failure writeRest(const MoleculePiece& piece, const Position& position)
    {
        const Parsed<PartWeight> plain = plainOf(piece, position);
        if (!plain)
            return at(plain.error(), position);
        if (isSameMass(piece.bare.masses, plain->masses))
            return {};
        WeighedAtoms rest{piece.bare.masses - plain->masses, piece.bare.composition};
        if (plain->isBare || (rest.composition && !rest.composition->add(plain->composition, -1)))
            rest.composition.reset();
        const Parsed<Modification> modification = m_names.of(rest, ofGroups());
        return modification ? add(position, *modification) : at(modification.error(), position);
    }

    Parsed<PartWeight> plainOf(const MoleculePiece& piece, const Position& position) const
    {
        const bool isLeft =
            position.second == 0 && m_content.chains[std::size_t(position.first)].hasLeftEnd;
        return piece.letter == 0 ? m_weigher.atoms(plainEnd(isLeft))
                                 : m_weigher.residue(piece.letter);
    }

    static Failure at(Error error, const Position& position)
    {
        error.chain = position.first;
        error.residue = position.second;
        return error;
    }

    static Modification withoutLabel(Modification modification)
    {
        modification.label = {};
        return modification;
    }

    Failure add(const Position& position, const Modification& modification)
    {
        const MoleculeChain& parts = m_content.chains[std::size_t(position.first)];
        PeptidoformChain& chain = m_chains[std::size_t(position.first)];
        const qsizetype unit = position.second - parts.firstUnit();
        if (unit >= 0 && unit < parts.unitCount()) {
            chain.modifications.push_back({unit, modification});
            return {};
        }
        std::vector<Modification>& end = unit < 0 ? chain.leftEnd : chain.rightEnd;
        if (end.size() == mostAtAnEnd)
            return refusalAt(u"at most two modifications of an end"_s, position);
        end.push_back(modification);
        return {};
    }

    Failure writeLink(qsizetype index)
    {
        const auto [first, second] = m_content.links[index].connection();
        const Parsed<Position> firstEnd = linkEnd(first, index);
        if (!firstEnd)
            return firstEnd.error();
        const Parsed<Position> secondEnd = linkEnd(second, index);
        if (!secondEnd)
            return secondEnd.error();
        const chem::MoleculeEntity bridge = m_content.links[index].entity();
        if (const auto ends = namedEnds(bridge, *firstEnd))
            return addEnds(*firstEnd, ends->first, *secondEnd, ends->second);
        Parsed<Modification> described = m_names.of(bridge, ofLinks());
        if (!described)
            return at(described.error(), first);
        Modification modification = *std::move(described);
        modification.label = freshLabel(ModificationLabel::CrossLink);
        return addEnds(*firstEnd, modification, *secondEnd, bareLabel(modification.label));
    }

    /// What stands at the two ends of a link by its name and code, if these tell the truth. Nothing
    /// at the first end where an earlier link has written it.
    std::optional<std::pair<Modification, Modification>>
    namedEnds(const chem::MoleculeEntity& bridge, const Position& firstEnd)
    {
        const auto first = readModification(bridge.name());
        const auto second = readModification(bridge.code());
        const WeighedAtoms weight = m_names.weighed(bridge);
        if (!first || !second || first->tags.empty() || !isBridge(first->label) ||
            second->label != first->label)
            return {};
        const std::pair<Position, Modification> start{firstEnd, *first};
        const bool isMore = std::find(m_starts.begin(), m_starts.end(), start) != m_starts.end();
        if (isMore && isSameMass(weight.masses, {}))
            return std::pair(Modification(), *second);
        const bool isTrue = m_names.isSame(*first, weight) &&
                            (second->tags.empty() || m_names.isSame(*second, weight));
        if (!isTrue || !take(first->label))
            return {};
        m_starts.push_back(start);
        return std::pair(*first, *second);
    }

    Failure addEnds(const Position& firstEnd, const Modification& first, const Position& secondEnd,
                    const Modification& second)
    {
        const bool isNothing = first == Modification();
        if (Failure failure = isNothing ? Failure() : add(firstEnd, first))
            return failure;
        return add(secondEnd, second);
    }

    Parsed<Position> linkEnd(const Position& position, qsizetype link) const
    {
        if (position.first < 0 || position.first >= std::ssize(m_content.chains))
            return refusalAt(u"a link between residues"_s, position);
        const MoleculeChain& chain = m_content.chains[std::size_t(position.first)];
        Position end = position;
        if (!chain.hasLeftEnd) {
            const auto linked =
                m_content.lastCut.linkedResidue(link, position.second, chain.isPiece);
            if (!linked)
                return refusalAt(u"a link whose place does not depend on a cut"_s, position);
            end.second = int(*linked);
        }
        return m_content.exists(end) ? Parsed<Position>(end)
                                     : refusalAt(u"a link between residues"_s, position);
    }

    Failure writeOpen(const chem::Modification& open)
    {
        QList<Position> places;
        for (const Position& position : open.possibleChainLocations()) {
            if (!places.contains(position))
                places.append(position);
        }
        const chem::MoleculeEntity group = open.entity();
        Parsed<Modification> named = m_names.of(group, ofGroups());
        if (!named)
            return named.error();
        Modification modification = *std::move(named);
        if (places.isEmpty() && m_chains.size() > 1)
            return Error{u"expected a place for a modification, as there are several chains"_s};
        const qsizetype chain = places.isEmpty() ? 0 : places.first().first;
        if (isBridge(modification.label))
            modification.label = {};
        if (places.isEmpty() || isByRule(modification, places))
            return addUnlocalised(chain, modification, places);
        return writePlaces(modification, places, isInFront(modification, group));
    }

    /// Whether the places are those that the notation gives to a modification of unknown place.
    bool isByRule(const Modification& modification, const QList<Position>& places) const
    {
        if (modification.label.kind != ModificationLabel::None)
            return false;
        const auto index = std::size_t(places.first().first);
        const PeptidoformChain& chain = m_chains[index];
        QList<Position> open;
        for (const qsizetype unit :
             ChainSites(chain).openSites(modification.placement, 0, chain.residues.size() - 1))
            open.append({int(index), int(unit + m_content.chains[index].firstUnit())});
        return open == places;
    }

    /// Equal ones in a row are counted.
    Failure addUnlocalised(qsizetype chain, const Modification& modification,
                           const QList<Position>& places)
    {
        auto& all = m_chains[std::size_t(chain)].unlocalised;
        const bool isUnlabelled = modification.label.kind == ModificationLabel::None;
        if (!all.empty() && all.back().modification == modification &&
            (isUnlabelled || places == m_lastPlaces)) {
            ++all.back().count;
            return {};
        }
        m_lastPlaces = places;
        if (isUnlabelled || take(modification.label))
            all.push_back({modification, 1});
        else
            all.push_back({withoutLabel(modification), 1});
        return {};
    }

    Failure writePlaces(Modification modification, const QList<Position>& places, bool isFront)
    {
        auto& unlocalised = m_chains[std::size_t(places.first().first)].unlocalised;
        const bool isCounted = isFront && !unlocalised.empty() && places == m_lastPlaces &&
                               unlocalised.back().modification == modification;
        if (isCounted) {
            ++unlocalised.back().count;
            return {};
        }
        if (modification.label.kind == ModificationLabel::None || !take(modification.label))
            modification.label = freshLabel(ModificationLabel::Ambiguous);
        const Modification label = bareLabel(modification.label);
        if (isFront) {
            unlocalised.push_back({modification, 1});
            m_lastPlaces = places;
        }
        for (const Position& position : places) {
            const bool isDescribed = !isFront && position == places.first();
            if (Failure failure = add(position, isDescribed ? modification : label))
                return failure;
        }
        return {};
    }

    /// By residue, what has a label behind what has none.
    void sortModifications()
    {
        const auto hasNoLabel = [](const Modification& modification) {
            return modification.label.kind == ModificationLabel::None;
        };
        const auto isLess = [&](const ResidueModification& left, const ResidueModification& right) {
            return std::pair(left.residue, !hasNoLabel(left.modification)) <
                   std::pair(right.residue, !hasNoLabel(right.modification));
        };
        for (PeptidoformChain& chain : m_chains) {
            std::stable_sort(chain.modifications.begin(), chain.modifications.end(), isLess);
            std::stable_partition(chain.leftEnd.begin(), chain.leftEnd.end(), hasNoLabel);
            std::stable_partition(chain.rightEnd.begin(), chain.rightEnd.end(), hasNoLabel);
        }
    }

    const MoleculeContent& m_content;
    const GroupNames& m_names;
    const PartWeigher& m_weigher;
    std::vector<PeptidoformChain> m_chains;
    QSet<QString> m_known;                                   ///< Labels of names.
    QSet<QString> m_taken;                                   ///< Labels that are written.
    std::vector<std::pair<Position, Modification>> m_starts; ///< First ends of links by name.
    QList<Position> m_lastPlaces; ///< Of the last modification in front of a chain.
};

} // namespace

Parsed<Peptidoform> Peptidoform::ofMolecule(const chem::MoleculeEntity& molecule,
                                            const ResidueTable& residues,
                                            const ModificationTable& modifications)
{
    const Parsed<MoleculeContent> content = MoleculeContent::of(molecule, residues);
    if (!content)
        return content.error();
    std::vector<WeighedAtoms> groups;
    for (const chem::MoleculeEntity& group : content->groups())
        groups.push_back(WeighedAtoms::of(group.formula(), massesOf(group), residues.atoms()));
    Peptidoform peptidoform;
    peptidoform.isotopes = isotopesOf(content->chains, groups, residues);
    const PartWeigher weigher(residues, modifications, peptidoform.isotopes);
    const GroupNames names(modifications, weigher, residues.atoms(), peptidoform.isotopes);
    Parsed<std::vector<PeptidoformChain>> chains =
        PeptidoformWriter(*content, names, weigher).write();
    if (!chains)
        return chains.error();
    peptidoform.ions.emplace_back().chains = *std::move(chains);
    return peptidoform;
}

} // namespace ions
