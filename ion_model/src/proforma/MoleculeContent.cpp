#include "proforma/MoleculeContent.h"

#include "proforma/ModificationText.h"

using namespace Qt::StringLiterals;

namespace ions {

Error refusalAt(const QString& expected, const MoleculePosition& position)
{
    return {u"expected "_s + expected, -1, position.first, position.second};
}

Error placedAt(Error error, const MoleculePosition& position)
{
    error.chain = position.first;
    error.residue = position.second;
    return error;
}

Modification bareLabel(const ModificationLabel& label)
{
    Modification modification;
    modification.label = {label.kind, label.name, {}};
    return modification;
}

bool isInFront(const Modification& modification, const chem::MoleculeEntity& group)
{
    return modification.label.kind == ModificationLabel::Ambiguous &&
           group.code() == modificationText(bareLabel(modification.label));
}

MoleculeContent::MoleculeContent(const chem::MoleculeEntity& molecule)
    : links(molecule.links())
    , lastCut(molecule)
{
}

Parsed<MoleculeContent> MoleculeContent::of(const chem::MoleculeEntity& molecule,
                                            const ResidueTable& residues)
{
    MoleculeContent content(molecule);
    if (auto failure = content.read(molecule, residues))
        return *std::move(failure);
    return content;
}

bool MoleculeContent::exists(const MoleculePosition& position) const
{
    return position.first >= 0 && position.first < std::ssize(chains) && position.second >= 0 &&
           position.second < std::ssize(chains[std::size_t(position.first)].pieces);
}

std::vector<chem::MoleculeEntity> MoleculeContent::groups() const
{
    std::vector<chem::MoleculeEntity> all;
    for (const MoleculeChain& chain : chains) {
        for (const MoleculePiece& piece : chain.pieces) {
            for (const chem::Modification& group : piece.groups)
                all.push_back(group.entity());
        }
    }
    for (const chem::Modification& group : open)
        all.push_back(group.entity());
    for (const chem::Link& link : links)
        all.push_back(link.entity());
    return all;
}

std::optional<Error> MoleculeContent::read(const chem::MoleculeEntity& molecule,
                                           const ResidueTable& residues)
{
    const QList<chem::Chain> all = molecule.chains();
    if (all.isEmpty())
        return Error{u"expected a molecule with a chain"_s};
    for (const chem::Chain& chain : all) {
        Parsed<MoleculeChain> parts = takeApart(chain, std::ssize(chains), residues);
        if (!parts)
            return parts.error();
        chains.push_back(*std::move(parts));
    }
    return place(molecule.modifications());
}

/// What has one place is on that residue, unless it says that a rule or a label chose it.
std::optional<Error> MoleculeContent::place(const QList<chem::Modification>& modifications)
{
    for (const chem::Modification& modification : modifications) {
        const QList<MoleculePosition>& places = modification.possibleChainLocations();
        if (!places.isEmpty() && lastCut.isOlder(modification))
            return refusalAt(u"no place that counts from before a cut"_s, places.first());
        for (const MoleculePosition& position : places) {
            if (!exists(position))
                return refusalAt(u"a modification at a residue"_s, position);
            if (position.first != places.first().first)
                return refusalAt(u"an open modification within one chain"_s, position);
        }
        const chem::MoleculeEntity group = modification.entity();
        const auto named = readModification(group.name());
        const bool isOpen =
            named && (!named->placement.positions.empty() || isInFront(*named, group));
        if (places.size() == 1 && !isOpen)
            chains[std::size_t(places.first().first)]
                .pieces[std::size_t(places.first().second)]
                .groups.append(modification);
        else
            open.append(modification);
    }
    return {};
}

} // namespace ions
