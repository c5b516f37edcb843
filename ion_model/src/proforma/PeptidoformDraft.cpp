#include "proforma/PeptidoformDraft.h"

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace ions {

namespace {

constexpr std::size_t mostAtAnEnd = 2;

/// What says that a chain has no left or right end.
Modification missingEnd(bool isLeft)
{
    Composition end;
    static_cast<void>(end.add(plainEnd(isLeft), -1));
    return GroupNames::formula(end);
}

bool hasNoLabel(const Modification& modification)
{
    return modification.label.kind == ModificationLabel::None;
}

bool isInFrontOf(const ResidueModification& left, const ResidueModification& right)
{
    return std::pair(left.residue, !hasNoLabel(left.modification)) <
           std::pair(right.residue, !hasNoLabel(right.modification));
}

} // namespace

PeptidoformDraft::PeptidoformDraft(const MoleculeContent& content, const GroupNames& names)
    : m_content(content)
    , m_names(names)
{
    for (const MoleculeChain& parts : content.chains)
        startChain(parts);
    for (const chem::MoleculeEntity& group : content.groups()) {
        if (const auto named = readModification(group.name()))
            m_labels.keep(named->label);
    }
}

void PeptidoformDraft::startChain(const MoleculeChain& parts)
{
    PeptidoformChain& chain = m_chains.emplace_back();
    for (const MoleculePiece& piece : parts.pieces) {
        if (piece.letter != 0)
            chain.residues.append(QChar(piece.letter));
    }
    if (!parts.hasLeftEnd)
        chain.leftEnd.push_back(missingEnd(true));
    if (!parts.hasRightEnd)
        chain.rightEnd.push_back(missingEnd(false));
}

std::optional<Error> PeptidoformDraft::add(const MoleculePosition& position,
                                           const Modification& modification)
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

void PeptidoformDraft::sortModifications()
{
    for (PeptidoformChain& chain : m_chains) {
        std::stable_sort(chain.modifications.begin(), chain.modifications.end(), isInFrontOf);
        std::stable_partition(chain.leftEnd.begin(), chain.leftEnd.end(), hasNoLabel);
        std::stable_partition(chain.rightEnd.begin(), chain.rightEnd.end(), hasNoLabel);
    }
}

} // namespace ions
