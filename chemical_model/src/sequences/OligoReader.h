#pragma once

#include "LinearComplex.h"
#include "sequences/ChainGroups.h"
#include "sequences/OligoNucleotides.h"
#include "sequences/OligoScanner.h"
#include "sequences/OligoSites.h"

#include <QList>
#include <QSharedPointer>
#include <QString>

#include <optional>

namespace chem {

struct OligoText;

/// Reads oligonucleotide text. What the functions mean is told by the members of ChemicalFactory
/// that call them.
class OligoReader
{
public:
    OligoReader(const OligoBlocks& blocks, const ChainGroups& groups);

    /// Tells whether a text is one oligonucleotide, or several separated by commas.
    bool isValid(QStringView text) const;

    /// Appends the nucleotides and writes both terminals, also on failure. The text may lie in one
    /// of these.
    bool parse(const QString& text, QList<QSharedPointer<const Nucleotide>>* nucleotides,
               NamedMolecule* fivePrime, NamedMolecule* threePrime) const;

    /// Lays a text out, whose blanks are ignored; null if it is outside the grammar.
    QSharedPointer<MoleculeComplex> complex(const QString& text) const;

    /// Lays nucleotides out between their terminals.
    QSharedPointer<MoleculeComplex>
    complex(const QList<QSharedPointer<const Nucleotide>>& nucleotides,
            const NamedMolecule& fivePrime, const NamedMolecule& threePrime) const;

    /// Appends the whole, then the truncations of its 5' end, then those of its 3' end. Text
    /// outside the grammar gives complexes of the terminals alone.
    void appendTruncations(const QString& text, int fivePrimeTruncations, int threePrimeTruncations,
                           QList<QSharedPointer<const MoleculeComplex>>* complexes) const;

private:
    std::optional<OligoText> read(const QString& text) const;
    void writeUnmarkedTerminals(NamedMolecule* fivePrime, NamedMolecule* threePrime) const;
    void writeTerminals(const OligoText& text, bool isBareNumber, NamedMolecule* fivePrime,
                        NamedMolecule* threePrime) const;

    OligoScanner m_scanner;
    OligoSites m_sites;
    OligoNucleotides m_nucleotides;
    NamedMolecule m_unmarkedFivePrime;
    NamedMolecule m_unmarkedThreePrime;
};

} // namespace chem
