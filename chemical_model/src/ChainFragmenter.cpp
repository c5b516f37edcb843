#include "ChainFragmenter.h"

#include "FormulaSum.h"
#include "TransformationHistory.h"

#include <algorithm>
#include <utility>

namespace chem {

namespace {

/// The totals of the pieces, added up from nothing.
struct Totals
{
    FormulaSum formula;
    double averageMass = 0.0;
    double monoMass = 0.0;

    void add(const MoleculeEntity& entity)
    {
        formula.add(entity.formula());
        averageMass += entity.averageMass();
        monoMass += entity.monoMass();
    }

    void addTerminals(const ChainFragmentDef& definition)
    {
        formula.add(definition.startTerminal.formula() + definition.endTerminal.formula());
        averageMass += definition.endTerminal.averageMass();
        averageMass += definition.startTerminal.averageMass();
        monoMass += definition.endTerminal.monoMass();
        monoMass += definition.startTerminal.monoMass();
    }
};

bool isPlaced(const MoleculeEntity& terminal)
{
    return terminal.averageMass() != 0.0;
}

/// The chain that a piece is cut from; one without residues where there is no such chain.
Chain parentChain(const QList<Chain>& chains, int index)
{
    if (index >= 0 && index < chains.size())
        return chains[index];
    return Chain(QString(), QString(), {}, MoleculeType::Unknown, ParentChainLocus());
}

/// Cuts one piece out and adds it to the totals.
Chain cutPiece(const QList<Chain>& chains, const ChainFragmentDef& definition, Totals* totals)
{
    const ParentChainLocus& locus = definition.locus;
    const Chain parent = parentChain(chains, locus.chain);
    const qsizetype start = std::max<qsizetype>(locus.start, 0);
    const qsizetype end = std::min<qsizetype>(locus.end, parent.residues().size());

    totals->addTerminals(definition);
    QList<MoleculeEntity> residues;
    residues.reserve(std::max<qsizetype>(end - start, 0) + 2);
    if (isPlaced(definition.startTerminal))
        residues.append(definition.startTerminal);
    for (qsizetype i = start; i < end; ++i) {
        const MoleculeEntity& residue = parent.residues()[i];
        residues.append(residue);
        totals->add(residue);
    }
    if (isPlaced(definition.endTerminal))
        residues.append(definition.endTerminal);
    return Chain(parent.name(), parent.code(), residues, parent.type(), locus);
}

bool holds(const Chain& piece, const std::pair<int, int>& position)
{
    const ParentChainLocus& locus = piece.parentLocus();
    return locus.chain == position.first && locus.start <= position.second &&
           position.second < locus.end;
}

/// Where a position of the parent lies in a piece. One place is counted for a start terminal even
/// if there is none, which readers of such a link allow for.
std::pair<int, int> positionInPiece(const QList<Chain>& pieces, qsizetype piece,
                                    const std::pair<int, int>& position)
{
    const qint64 residue = qint64(position.second) - pieces[piece].parentLocus().start + 1;
    return {static_cast<int>(piece), static_cast<int>(residue)};
}

/// Adds the link once for each piece that holds its first end; its second end goes to the first
/// piece that holds it.
void keepLink(const Link& link, const QList<Chain>& pieces, QList<Link>* links, Totals* totals)
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
        totals->add(entity);
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
    Totals totals;
    QList<Chain> pieces;
    pieces.reserve(m_fragmentDefs.size());
    for (const ChainFragmentDef& definition : m_fragmentDefs)
        pieces.append(cutPiece(result.chains, definition, &totals));

    QList<Link> links;
    links.reserve(result.links.size());
    for (const Link& link : std::as_const(result.links))
        keepLink(link, pieces, &links, &totals);
    for (const Modification& modification : std::as_const(result.modifications))
        totals.add(modification.entity());

    result.name = QStringLiteral("fragment");
    result.chains = pieces;
    result.links = links;
    result.formula = totals.formula.result();
    result.monoMass = totals.monoMass;
    result.averageMass = totals.averageMass;
    return recordStep(std::move(result), *this, molecule);
}

TransformationType ChainFragmenter::type() const
{
    return ChainFragmenterTransformation;
}

} // namespace chem
