#pragma once

#include "sequences/OligoNucleotides.h"
#include "sequences/OligoScanner.h"
#include <ChemicalFactory.h>

/// \file
/// Oligonucleotides with a base for each letter of a text.

namespace oligoLetters {

using namespace Qt::StringLiterals;

inline chem::Molecule molecule(const QString& formula)
{
    return chem::defaultChemicalFactory()->constructMolecule(formula);
}

/// A dictionary of the letters of `keys`.
inline QMap<QString, chem::NamedMolecule> dictionary(const QString& keys)
{
    QMap<QString, chem::NamedMolecule> dictionary;
    for (const QChar key : keys)
        dictionary.insert(key, chem::NamedMolecule(molecule(u"C"_s), u"name of "_s + key, key));
    return dictionary;
}

inline chem::OligoBlocks blocks(const QString& nucleobases)
{
    return {.fivePrimeTerminals = dictionary(u"["_s),
            .riboses = dictionary(u"r"_s),
            .nucleobases = dictionary(nucleobases),
            .phosphates = dictionary(u"*"_s),
            .threePrimeTerminals = dictionary(u"]"_s),
            .defaultRibose = chem::NamedMolecule(molecule(u"O"_s), u"sugar"_s, QString()),
            .defaultPhosphate = chem::NamedMolecule(molecule(u"P"_s), u"linkage"_s, QString())};
}

inline chem::OligoSites sites()
{
    chem::ChainGroups groups;
    groups.hydrogen = molecule(u"H"_s);
    groups.hydroxyl = molecule(u"OH"_s);
    groups.oxygen = molecule(u"O"_s);
    groups.hydrogenPair = molecule(u"H2"_s);
    return chem::OligoSites(groups);
}

inline chem::OligoUnit unitOf(QStringView ribose, QStringView base, QStringView phosphates)
{
    return {{}, ribose, base, {}, phosphates};
}

} // namespace oligoLetters
