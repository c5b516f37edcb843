#include "proforma/MoleculeParts.h"

#include "backbone/ChainReader.h"
#include "masses/EntityMasses.h"

#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;

namespace ions {

namespace {

/// The letter of a residue whose mass the notation knows.
char16_t letterOf(const chem::MoleculeEntity& residue, const ResidueTable& residues)
{
    const QString code = residue.code();
    const bool isLetter = code.size() == 1 && code[0] >= u'A' && code[0] <= u'Z';
    const bool isKnown = isLetter && !std::isnan(residues.residue(code[0].unicode()).average);
    return isKnown ? code[0].unicode() : u'X';
}

MoleculePiece pieceOf(const chem::MoleculeEntity& residue, const ResidueTable& residues)
{
    MoleculePiece piece{letterOf(residue, residues), {}, residue.modifications()};
    chem::ChemicalFormula formula = residue.formula();
    Masses masses = massesOf(residue);
    for (const chem::Modification& group : std::as_const(piece.groups)) {
        formula -= group.formula();
        masses -= massesOf(group);
    }
    piece.bare = WeighedAtoms::of(formula, masses, residues.atoms());
    return piece;
}

/// What a piece is made of without labels; nothing where nobody knows.
std::optional<Composition> plainOf(const MoleculeChain& chain, const MoleculePiece& piece,
                                   const ResidueTable& residues)
{
    if (piece.letter == 0)
        return plainEnd(chain.hasLeftEnd && &piece == &chain.pieces.front());
    const Composition* const known = residues.composition(piece.letter);
    return known ? std::optional(*known) : std::nullopt;
}

/// Adds the isotopes that stand in place of all atoms of their element.
void addIsotopes(const Composition& plain, const Composition& labelled, std::vector<Atom>* isotopes)
{
    for (const Composition::Term& term : labelled.terms()) {
        const bool isWhole = term.atom.massNumber != 0 &&
                             plain.count({term.atom.atomicNumber, 0}) == term.count &&
                             plain.count(term.atom) == 0;
        const bool isNew =
            std::find(isotopes->begin(), isotopes->end(), term.atom) == isotopes->end();
        if (isWhole && isNew)
            isotopes->push_back(term.atom);
    }
}

/// Whether a label of all atoms would change a group.
bool hasUnlabelled(const WeighedAtoms& group, const std::vector<Atom>& isotopes)
{
    return group.composition && std::any_of(isotopes.begin(), isotopes.end(), [&](Atom isotope) {
               return group.composition->count({isotope.atomicNumber, 0}) != 0;
           });
}

} // namespace

Composition plainEnd(bool isLeft)
{
    Composition end({1, 0});
    if (!isLeft)
        static_cast<void>(end.add({8, 0}, 1));
    return end;
}

Parsed<MoleculeChain> takeApart(const chem::Chain& chain, qsizetype index,
                                const ResidueTable& residues)
{
    const QList<chem::MoleculeEntity>& entities = chain.residues();
    ChainReader reader(entities, chain.type(), index, residues);
    if (auto error = reader.read())
        return *std::move(error);
    if (reader.chain().polymer != Polymer::Peptide)
        return Error{u"expected a chain of amino acids"_s, -1, index};
    MoleculeChain parts;
    parts.hasLeftEnd = reader.chain().hasLeftEnd;
    parts.hasRightEnd = reader.chain().hasRightEnd;
    parts.isPiece = chain.parentLocus().end != 0;
    for (const chem::MoleculeEntity& entity : entities)
        parts.pieces.push_back(pieceOf(entity, residues));
    if (parts.hasLeftEnd)
        parts.pieces.front().letter = 0;
    if (parts.hasRightEnd)
        parts.pieces.back().letter = 0;
    return parts;
}

std::vector<Atom> isotopesOf(const std::vector<MoleculeChain>& chains,
                             std::vector<WeighedAtoms> groups, const ResidueTable& residues)
{
    std::vector<std::pair<Composition, Composition>> pairs; // without labels, and as it is
    for (const MoleculeChain& chain : chains) {
        for (const MoleculePiece& piece : chain.pieces) {
            auto plain = plainOf(chain, piece, residues);
            if (plain && !piece.bare.composition)
                return {};
            if (plain)
                pairs.emplace_back(*std::move(plain), *piece.bare.composition);
            else
                groups.push_back(piece.bare);
        }
    }
    std::vector<Atom> isotopes;
    for (const auto& [plain, labelled] : pairs)
        addIsotopes(plain, labelled, &isotopes);
    std::sort(isotopes.begin(), isotopes.end());
    const bool isUniform = std::all_of(pairs.begin(), pairs.end(), [&](const auto& pair) {
        return isLabelled(pair.first, pair.second, isotopes);
    });
    const bool isPartial = std::any_of(groups.begin(), groups.end(), [&](const auto& group) {
        return hasUnlabelled(group, isotopes);
    });
    return isUniform && !isPartial ? isotopes : std::vector<Atom>();
}

} // namespace ions
