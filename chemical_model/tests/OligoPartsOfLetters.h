#pragma once

#include "OligoParts.h"
#include "OligoScanner.h"
#include <ChemicalFactory.h>

#include <memory>

/// \file
/// Parts of oligonucleotides with a base for each letter of a text.

namespace oligoPartsOfLetters {

inline chem::Molecule molecule(const QString& formula)
{
    return chem::defaultChemicalFactory()->constructMolecule(formula);
}

/// A dictionary of the letters of `keys`.
inline chem::LetterTable letters(const QString& keys)
{
    QMap<QString, chem::NamedMolecule> dictionary;
    for (const QChar key : keys) {
        const QString name = QStringLiteral("name of ") + key;
        dictionary.insert(key, chem::NamedMolecule(molecule(QStringLiteral("C")), name, key));
    }
    return chem::LetterTable(dictionary);
}

inline std::unique_ptr<chem::OligoParts> makeParts(const QString& nucleobases)
{
    using namespace Qt::StringLiterals;
    return std::make_unique<chem::OligoParts>(
        chem::OligoParts::Blocks{letters(u"r"_s), letters(nucleobases), letters(u"*"_s),
                                 letters(u"["_s), letters(u"]"_s),
                                 chem::NamedMolecule(molecule(u"O"_s), u"sugar"_s, QString()),
                                 chem::NamedMolecule(molecule(u"P"_s), u"linkage"_s, QString())},
        chem::OligoSites::Pieces{molecule(u"H"_s), molecule(u"OH"_s), molecule(u"O"_s),
                                 molecule(u"H2"_s)});
}

inline chem::OligoUnit unitOf(QStringView ribose, QStringView base, QStringView phosphates)
{
    return {{}, ribose, base, {}, phosphates};
}

} // namespace oligoPartsOfLetters
