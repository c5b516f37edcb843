#pragma once

#include "Backbone.h"
#include "Parsed.h"
#include "ResidueTable.h"
#include <zel_chemical_model/MoleculeEntity.h>
#include <zel_chemical_model/MoleculeType.h>

#include <QList>

#include <optional>

namespace ions {

/// Where a residue of a chain of the first library stands in a backbone.
struct UnitPlace
{
    qsizetype unit = 0;     ///< The unit; that next to it for an end.
    bool isLinkage = false; ///< Whether it is what links the unit to the next one.
};

/// Reads the residues of a chain of the first library as units and ends.
class ChainReader
{
public:
    /// `index` is that of the chain, for refusals.
    ChainReader(const QList<chem::MoleculeEntity>& residues, chem::MoleculeType type,
                qsizetype index, const ResidueTable& table);

    /// Reads the chain; gives the refusal if there is one. To be called once, first.
    std::optional<Error> read();

    /// The chain that was read.
    const BackboneChain& chain() const { return m_chain; }

    /// Where a residue stands; nothing if there is none at this position.
    std::optional<UnitPlace> placeOf(qsizetype residue) const;

private:
    std::optional<Error> readEnds();
    std::optional<Error> readPeptide();
    std::optional<Error> readAminoAcid(qsizetype position);
    std::optional<Error> readOligonucleotide();
    std::optional<Error> readNucleotide(qsizetype position);

    void addNucleotide(const chem::MoleculeEntity& sugar, const chem::MoleculeEntity& base,
                       const chem::MoleculeEntity& linkage);

    Error refusal(const QString& expected, qsizetype residue) const;
    bool isEnd(const chem::MoleculeEntity& residue) const;
    Composition compositionOf(const chem::MoleculeEntity& residue) const;
    Composition groupOf(const chem::MoleculeEntity& end, const Composition& plain) const;

    const QList<chem::MoleculeEntity>& m_residues;
    chem::MoleculeType m_type;
    qsizetype m_index;
    const ResidueTable& m_table;
    qsizetype m_first = 0; ///< The first residue that is no end.
    qsizetype m_last = 0;  ///< One behind the last.
    BackboneChain m_chain;
};

} // namespace ions
