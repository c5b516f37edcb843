#pragma once

#include <ChemicalModel.h>

#include <QString>
#include <QTextStream>

/// \file
/// The sections of the tour and what they share.

/// Where the tour is printed.
QTextStream& out();

void printTitle(const QString& title);

/// A figure beside the one that literature gives, with the difference.
void printBesidePublished(const QString& what, double computed, double published, int decimals);

/// A number in a column of ten characters.
QString column(double value, int decimals);

void tourMolecules();
void tourIsotopes();
void tourOligonucleotides();
void tourProteins();
void tourIons();
