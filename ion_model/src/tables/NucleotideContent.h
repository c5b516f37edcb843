#pragma once

#include "NucleotideTable.h"
#include "masses/FactoryTables.h"
#include "tables/OligoLetters.h"
#include <zel_chemical_model/LinearComplex.h>

#include <QList>
#include <QSharedPointer>

namespace ions {

/// What a table of nucleotides holds.
struct NucleotideTable::Content
{
    /// A text as the factory reads it.
    struct Text
    {
        QList<QSharedPointer<const chem::Nucleotide>> nucleotides;
        chem::NamedMolecule fivePrime;
        chem::NamedMolecule threePrime;
    };

    FactoryTables factory;
    OligoLetters letters;
    BreakMasses breaks;

    explicit Content(const chem::ChemicalFactory& from);

    /// What is wrong with a text that the letters do not tell; nothing where the factory is to
    /// read it, which knows more.
    std::optional<Error> refusal(QStringView text, const OligoLetters::Reading& reading) const;

    /// Reads a text by the factory.
    Parsed<Text> readByFactory(QStringView text) const;

private:
    bool canGoOn(QStringView text) const;
    qsizetype refusedPosition(QStringView text) const;
};

} // namespace ions
