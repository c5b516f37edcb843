#pragma once

#include <zel_chemical_model/MoleculeEntity.h>
#include <zel_chemical_model/StructuredMolecule.h>

#include <QList>

#include <optional>

namespace ions {

/// What a molecule of the first library had when its history last cut chains. Positions of what it
/// had then differ from those of what came later: modifications keep the places of the uncut
/// molecule, and links count a place for a left end, whether or not the piece has one.
class LastCut
{
public:
    explicit LastCut(const chem::MoleculeEntity& molecule);

    /// Whether the modification was there before the cut.
    bool isOlder(const chem::Modification& modification) const;
    /// The residue that the end of a link means by `residue`, in a chain without a left end;
    /// nothing where it cannot be told: behind several cuts, and in pieces without the history of a
    /// cut.
    std::optional<qsizetype> linkedResidue(qsizetype link, qsizetype residue, bool isPiece) const
    {
        const bool isOlder = link < m_links;
        const bool isUnsure = m_cuts == 0 ? isPiece : isOlder && m_cuts > 1;
        return isUnsure ? std::nullopt : std::optional(isOlder ? residue - 1 : residue);
    }

private:
    qsizetype m_cuts = 0;
    qsizetype m_links = 0;
    QList<chem::Modification> m_modifications;
};

} // namespace ions
