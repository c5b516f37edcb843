#pragma once

#include <zel_chemical_model/MoleculeEntity.h>
#include <zel_chemical_model/StructuredMolecule.h>

#include <QList>

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
    /// Whether the link at this index was there before the cut.
    bool isOlderLink(qsizetype index) const { return index < m_links; }
    /// How often the history cuts chains.
    qsizetype cuts() const { return m_cuts; }

private:
    qsizetype m_cuts = 0;
    qsizetype m_links = 0;
    QList<chem::Modification> m_modifications;
};

} // namespace ions
