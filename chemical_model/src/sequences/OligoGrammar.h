#pragma once

#include "Molecule.h"

#include <QMap>
#include <QString>

namespace chem {

/// The building blocks that oligonucleotide text is made from.
struct OligoBlocks
{
    QMap<QString, NamedMolecule> fivePrimeTerminals;
    QMap<QString, NamedMolecule> riboses;
    QMap<QString, NamedMolecule> nucleobases;
    QMap<QString, NamedMolecule> phosphates;
    QMap<QString, NamedMolecule> threePrimeTerminals;
    NamedMolecule defaultRibose;    ///< Of a nucleotide that names none.
    NamedMolecule defaultPhosphate; ///< Likewise.
};

/// The five alphabets of oligonucleotide text, each as the inside of a character class.
struct OligoAlphabets
{
    QString fivePrimeMarks;
    QString riboses;
    QString nucleobases;
    QString phosphates;
    QString threePrimeMarks;
};

OligoAlphabets alphabetsOf(const OligoBlocks& blocks);

/// The expression of one nucleotide: ribose, base or number, phosphates.
QString oligoUnitExpression(const OligoAlphabets& alphabets);

/// The groups that it captures; one more holds base and number alike.
enum OligoUnitGroup { RiboseGroup = 1, BaseGroup = 3, NumberGroup = 4, PhosphatesGroup = 5 };

/// The expression of a whole text: 5' mark, nucleotides, 3' mark.
QString oligoFullExpression(const OligoAlphabets& alphabets);

/// The groups that it captures; others hold parts of the last nucleotide.
enum OligoFullGroup { FivePrimeGroup = 1, BodyGroup = 2, ThreePrimeGroup = 6 };

} // namespace chem
