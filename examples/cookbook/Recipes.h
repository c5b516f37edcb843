#pragma once

#include <ChemicalModel.h>

#include <QString>
#include <QTextStream>

/// \file
/// The recipes that the pages quote. Each prints what its page shows.

using namespace chem;
using namespace Qt::StringLiterals;

using Recipe = void (*)(QTextStream& out);

void massOfFormula(QTextStream& out);
void peptideFragments(QTextStream& out);
void modifiedSugars(QTextStream& out);
void labelledFactory(QTextStream& out);
void disulfide(QTextStream& out);
void clipsAndMatching(QTextStream& out);
void messages(QTextStream& out);
void threads(QTextStream& out);
void antibody(QTextStream& out);

void massToCharge(QTextStream& out);
void neutralLosses(QTextStream& out);
void modificationAtResidue(QTextStream& out);
void missedCleavages(QTextStream& out);
void averagine(QTextStream& out);
void monoisotopicMatching(QTextStream& out);

void quietFailures(QTextStream& out);
void histories(QTextStream& out);
void headerExamples(QTextStream& out);

void averageMasses(QTextStream& out);
void shareLeftOut(QTextStream& out);
void firstWandX(QTextStream& out);
void electronMass(QTextStream& out);
void estimates(QTextStream& out);
