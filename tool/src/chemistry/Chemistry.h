#pragma once

#include <ModificationTable.h>
#include <NucleotideTable.h>
#include <ResidueTable.h>
#include <zel_chemical_model/ChemicalFactory.h>

#include <QSharedPointer>
#include <QString>

namespace tool {

/// The factory that a command works with and the tables that are read from it.
class Chemistry
{
public:
    /// Natural isotopes for an empty text, else those that the text names, which is checked first:
    /// throws UsageError.
    explicit Chemistry(const QString& isotopes);

    const QSharedPointer<chem::ChemicalFactory> factory;
    const ions::ResidueTable residues;
    const ions::NucleotideTable nucleotides;
    const ions::ModificationTable modifications;
    const ions::AtomMasses natural; ///< Of charge carriers, whatever the molecule has.

    const ions::AtomMasses& atoms() const { return residues.atoms(); }
};

} // namespace tool
