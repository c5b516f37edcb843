#include "ChainFragmenter.h"

#include "core/MoleculeSum.h"
#include "steps/TransformationHistory.h"
#include "structure/ResiduePosition.h"
#include "structure/StructuredCopy.h"
#include "structure/Totals.h"

#include <algorithm>
#include <utility>

namespace chem {

namespace {

/// Adds both terminals of a piece. The start terminal comes first in the formula and last in the
/// masses: not a slip, but the order that gives these sums their bits.
void addTerminals(const ChainFragmentDef& definition, MoleculeSum* totals)
{
    const MoleculeEntity& start = definition.startTerminal;
    const MoleculeEntity& end = definition.endTerminal;
    totals->add(Molecule(start.formula() + end.formula(), end.averageMass(), end.monoMass()));
    totals->add(Molecule(ChemicalFormula(), start.averageMass(), start.monoMass()));
}

bool isPlaced(const MoleculeEntity& terminal)
{
    return terminal.averageMass() != 0.0;
}

/// The chain that a piece is cut from; one without residues where there is no such chain.
Chain parentChain(const QList<Chain>& chains, int index)
{
    if (hasIndex(chains, index))
        return chains[index];
    return Chain(QString(), QString(), {}, MoleculeType::Unknown, ParentChainLocus());
}

/// Cuts one piece out and adds it to the totals.
Chain cutPiece(const QList<Chain>& chains, const ChainFragmentDef& definition, MoleculeSum* totals)
{
    const ParentChainLocus& locus = definition.locus;
    const Chain parent = parentChain(chains, locus.chain);
    const qsizetype start = std::max<qsizetype>(locus.start, 0);
    const qsizetype end = std::min<qsizetype>(locus.end, parent.residues().size());

    addTerminals(definition, totals);
    QList<MoleculeEntity> residues;
    residues.reserve(std::max<qsizetype>(end - start, 0) + 2);
    if (isPlaced(definition.startTerminal))
        residues.append(definition.startTerminal);
    for (qsizetype i = start; i < end; ++i) {
        const MoleculeEntity& residue = parent.residues()[i];
        residues.append(residue);
        totals->add(totalsOf(residue));
    }
    if (isPlaced(definition.endTerminal))
        residues.append(definition.endTerminal);
    return Chain(parent.name(), parent.code(), residues, parent.type(), locus);
}

bool holds(const Chain& piece, const ResiduePosition& position)
{
    const ParentChainLocus& locus = piece.parentLocus();
    return locus.chain == position.first && locus.start <= position.second &&
           position.second < locus.end;
}

/// Where a residue of the parent stands in a piece. A start terminal is counted even if there is
/// none, which readers of such a link allow for.
ResiduePosition positionInPiece(const QList<Chain>& pieces, qsizetype piece,
                                const ResiduePosition& position)
{
    const qint64 residue = qint64(position.second) - pieces[piece].parentLocus().start + 1;
    return {static_cast<int>(piece), static_cast<int>(residue)};
}

/// Adds the link once for each piece that holds its first end; its second end goes to the first
/// piece that holds it.
void keepLink(const Link& link, const QList<Chain>& pieces, QList<Link>* links, MoleculeSum* totals)
{
    const Link::Connection connection = link.connection();
    const auto secondPiece =
        std::find_if(pieces.cbegin(), pieces.cend(),
                     [&connection](const Chain& piece) { return holds(piece, connection.second); });
    if (secondPiece == pieces.cend())
        return;

    const MoleculeEntity entity = link.entity();
    const auto second = positionInPiece(pieces, secondPiece - pieces.cbegin(), connection.second);
    for (qsizetype piece = 0; piece < pieces.size(); ++piece) {
        if (!holds(pieces[piece], connection.first))
            continue;
        links->append(Link(entity, {positionInPiece(pieces, piece, connection.first), second}));
        totals->add(totalsOf(entity));
    }
}

} // namespace

ChainFragmenter::ChainFragmenter(const QList<ChainFragmentDef>& fragmentDefs)
    : m_fragmentDefs(fragmentDefs)
{
}

ChainFragmenter::ChainFragmenter(const ChainFragmenter& other) = default;

// Moving shares as copying does: a step that has been recorded can still be applied.
ChainFragmenter::ChainFragmenter(ChainFragmenter&& other) noexcept
    : Transformation(other)
    , m_fragmentDefs(other.m_fragmentDefs)
{
}

ChainFragmenter::~ChainFragmenter() = default;

MoleculeEntity ChainFragmenter::transform(MoleculeEntity molecule) const
{
    StructuredMolecule result = copyWithoutTotals(molecule);
    MoleculeSum totals;
    QList<Chain> pieces;
    pieces.reserve(m_fragmentDefs.size());
    for (const ChainFragmentDef& definition : m_fragmentDefs)
        pieces.append(cutPiece(result.chains, definition, &totals));

    QList<Link> links;
    links.reserve(result.links.size());
    for (const Link& link : std::as_const(result.links))
        keepLink(link, pieces, &links, &totals);
    for (const Modification& modification : std::as_const(result.modifications))
        totals.add(totalsOf(modification.entity()));

    result.name = QStringLiteral("fragment");
    result.chains = pieces;
    result.links = links;
    writeTotals(totals.result(), &result);
    return recordStep(std::move(result), *this, molecule);
}

TransformationType ChainFragmenter::type() const
{
    return ChainFragmenterTransformation;
}

} // namespace chem
