#pragma once

#include "Parsed.h"
#include "ProForma.h"
#include "proforma/GroupNames.h"
#include "proforma/LabelNames.h"
#include "proforma/MoleculeContent.h"

#include <optional>
#include <utility>
#include <vector>

namespace ions {

/// The chains of a peptidoform while they are written from a molecule.
class PeptidoformDraft
{
public:
    /// Writes the letters, and that ends are missing where they are. What is given has to live as
    /// long as this object.
    PeptidoformDraft(const MoleculeContent& content, const GroupNames& names);

    const MoleculeContent& content() const { return m_content; }
    const GroupNames& names() const { return m_names; }
    LabelNames& labels() { return m_labels; }
    PeptidoformChain& chain(qsizetype index) { return m_chains[std::size_t(index)]; }
    qsizetype chainCount() const { return std::ssize(m_chains); }

    /// Adds what stands at a residue or an end, of which there is one; gives the refusal if the end
    /// has too much.
    std::optional<Error> add(const MoleculePosition& position, const Modification& modification);

    /// By residue, what has a label behind what has none.
    void sortModifications();

    /// The chains, which the draft is then without.
    std::vector<PeptidoformChain> takeChains() { return std::move(m_chains); }

private:
    void startChain(const MoleculeChain& parts);

    const MoleculeContent& m_content;
    const GroupNames& m_names;
    LabelNames m_labels;
    std::vector<PeptidoformChain> m_chains;
};

/// Writes the links of the molecule; gives the refusal if one cannot be written.
std::optional<Error> writeLinks(PeptidoformDraft* draft);

/// Writes the modifications that are on no residue; to be called when all others are written and
/// sorted, as those decide where one of unknown place may sit.
std::optional<Error> writeOpenGroups(PeptidoformDraft* draft);

} // namespace ions
