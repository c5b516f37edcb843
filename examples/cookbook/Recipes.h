#pragma once

//! [Beginning]
#include <ChemicalModel.h>
//! [Beginning]

#include <QString>
#include <QTextStream>

/// \file
/// The recipes that the pages quote. Each prints what its page shows. What a page leaves out, the
/// default factory and the printing, stands outside of the marks.

//! [Beginning]
using namespace chem;
using namespace Qt::StringLiterals;
//! [Beginning]

/// A mass as the pages print it.
inline QString daltons(double mass, int digits = 4)
{
    return QString::number(mass, 'f', digits) + u" Da"_s;
}

using Recipe = void (*)(QTextStream& out);

void massOfFormula(QTextStream& out);
void peptideFragments(QTextStream& out);
void modifiedSugars(QTextStream& out);
void negativeIons(QTextStream& out);
void deletions(QTextStream& out);
void modifiedPeptides(QTextStream& out);
void disulfide(QTextStream& out);
void clipsAndMatching(QTextStream& out);
void antibody(QTextStream& out);

void modificationAtResidue(QTextStream& out);
void missedCleavages(QTextStream& out);

void isotopeTexts(QTextStream& out);
void isotopeTextsUnchecked(QTextStream& out);

void ionLabels(QTextStream& out);
void aminoAcids(QTextStream& out);
void glycanResidues(QTextStream& out);
void partsOfNucleotides(QTextStream& out);

void quietFailures(QTextStream& out);
void histories(QTextStream& out);
void headerExamples(QTextStream& out);
void ionHeaderExamples(QTextStream& out);

void averageMasses(QTextStream& out);
void shareLeftOut(QTextStream& out);
void firstWandX(QTextStream& out);
void electronMass(QTextStream& out);
void estimates(QTextStream& out);

void strictText(QTextStream& out);
void modifiedMass(QTextStream& out);
void proteinDigest(QTextStream& out);
void fragmentIons(QTextStream& out);
void ionsOfMolecules(QTextStream& out);
void annotatedPeaks(QTextStream& out);
void labelledPattern(QTextStream& out);
void formulasOfMass(QTextStream& out);

void proFormaFirst(QTextStream& out);
void proFormaTags(QTextStream& out);
void proFormaPlaces(QTextStream& out);
void proFormaRules(QTextStream& out);
void proFormaBridges(QTextStream& out);
void proFormaCharges(QTextStream& out);
void proFormaRefused(QTextStream& out);
void proFormaMolecule(QTextStream& out);
void proFormaIons(QTextStream& out);

/// What the recipes promise, proved on lists of texts and on masses from elsewhere: they print
/// FAILED where it does not hold.
void digestProved(QTextStream& out);
void oddTexts(QTextStream& out);
void oddCodes(QTextStream& out);
void isotopeTextsProved(QTextStream& out);
void negativeIonsProved(QTextStream& out);
void deletionsProved(QTextStream& out);
