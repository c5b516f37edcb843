#include "ProForma.h"
#include "masses/EntityMasses.h"
#include "proforma/PeptidoformDraft.h"

#include <utility>

using namespace Qt::StringLiterals;

namespace ions {

namespace {

using Failure = std::optional<Error>;

/// Writes residues and ends, and what sits on them.
class PieceWriter
{
public:
    PieceWriter(PeptidoformDraft* draft, const PartWeigher& weigher)
        : m_draft(*draft)
        , m_weigher(weigher)
    {
    }

    Failure write(const MoleculePiece& piece, const MoleculePosition& position)
    {
        for (const chem::Modification& group : piece.groups) {
            const auto modification = m_draft.names().of(group.entity(), {Vocabulary::Unimod});
            if (!modification)
                return placedAt(modification.error(), position);
            const Modification own = m_draft.labels().withOwnLabel(*modification, position.first);
            if (Failure failure = m_draft.add(position, own))
                return failure;
        }
        return writeRest(piece, position);
    }

private:
    /// What the residue or end weighs beside its letter.
    Failure writeRest(const MoleculePiece& piece, const MoleculePosition& position)
    {
        const Parsed<PartWeight> plain = plainOf(piece, position);
        if (!plain)
            return placedAt(plain.error(), position);
        if (isSameMass(piece.bare.masses, plain->masses))
            return {};
        WeighedAtoms rest{piece.bare.masses - plain->masses, piece.bare.composition};
        if (plain->isBare || (rest.composition && !rest.composition->add(plain->composition, -1)))
            rest.composition.reset();
        const Parsed<Modification> modification = m_draft.names().of(rest, {Vocabulary::Unimod});
        return modification ? m_draft.add(position, *modification)
                            : placedAt(modification.error(), position);
    }

    Parsed<PartWeight> plainOf(const MoleculePiece& piece, const MoleculePosition& position) const
    {
        const MoleculeChain& chain = m_draft.content().chains[std::size_t(position.first)];
        const bool isLeft = position.second == 0 && chain.hasLeftEnd;
        return piece.letter == 0 ? m_weigher.atoms(plainEnd(isLeft))
                                 : m_weigher.residue(piece.letter);
    }

    PeptidoformDraft& m_draft;
    const PartWeigher& m_weigher;
};

Failure writePieces(PeptidoformDraft* draft, const PartWeigher& weigher)
{
    PieceWriter writer(draft, weigher);
    int index = 0;
    for (const MoleculeChain& chain : draft->content().chains) {
        int position = 0;
        for (const MoleculePiece& piece : chain.pieces) {
            if (Failure failure = writer.write(piece, {index, position++}))
                return failure;
        }
        ++index;
    }
    return {};
}

/// What a molecule says in the isotopes of the weigher.
Parsed<std::vector<PeptidoformChain>> written(const MoleculeContent& content,
                                              const GroupNames& names, const PartWeigher& weigher)
{
    PeptidoformDraft draft(content, names);
    Failure failure = writePieces(&draft, weigher);
    if (!failure)
        failure = writeLinks(&draft);
    draft.sortModifications();
    if (!failure)
        failure = writeOpenGroups(&draft);
    if (failure)
        return *std::move(failure);
    draft.sortModifications();
    return draft.takeChains();
}

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
    Parsed<std::vector<PeptidoformChain>> chains = written(*content, names, weigher);
    if (!chains)
        return chains.error();
    peptidoform.ions.emplace_back().chains = *std::move(chains);
    return peptidoform;
}

} // namespace ions
