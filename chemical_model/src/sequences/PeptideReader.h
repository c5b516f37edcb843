#pragma once

#include "LinearComplex.h"
#include "sequences/ChainGroups.h"
#include "sequences/LetterTable.h"

#include <QList>
#include <QMap>
#include <QSharedPointer>
#include <QString>

#include <vector>

namespace chem {

/// Reads peptide text, one residue for each character. What is no letter of the dictionary is a
/// residue of no mass.
class PeptideReader
{
public:
    PeptideReader(const QMap<QString, NamedMolecule>& aminoAcids, const ChainGroups& groups);

    /// Appends the residues and writes both ends. The text may lie in one of these.
    void parse(const QString& sequence, QList<QSharedPointer<const AminoAcid>>* aminoAcids,
               NamedMolecule* nTerminal, NamedMolecule* cTerminal) const;

    /// Lays the text out between the standard ends.
    QSharedPointer<MoleculeComplex> complex(const QString& sequence) const;

    /// Writes the standard ends of a chain.
    void writeTermini(NamedMolecule* nTerminal, NamedMolecule* cTerminal) const;

private:
    LetterTable m_residues;
    std::vector<FragmentationSite> m_sites; ///< The ten ways to break, the same at every position.
    NamedMolecule m_nTerminal;
    NamedMolecule m_cTerminal;
};

} // namespace chem
