#pragma once

#include "Parsed.h"
#include "ProForma.h"
#include "support/TextCursor.h"

namespace ions {

/// Steps over a whole number with an optional sign.
Parsed<int> takeSignedInteger(TextCursor* cursor);

/// Steps over an isotope: its mass number, blanks and its element.
Parsed<Atom> takeIsotope(TextCursor* cursor);

/// Steps over a formula as ProForma writes it: elements and isotopes in brackets with signed
/// counts, blanks and tabs between them. Stops at what belongs to no formula.
Parsed<Composition> takeFormula(TextCursor* cursor);

/// Steps over a charge, as in ":z+2", which has to be there.
Parsed<int> takeCharge(TextCursor* cursor);

/// Steps over a formula and its charge, if it has one.
Parsed<ChargedFormula> takeChargedFormula(TextCursor* cursor);

/// The canonical text of a formula: Hill's order, "H0" where no atoms are left.
QString formulaText(const Composition& composition);

/// The same with the charge, which is left out if it is 0.
QString formulaText(const ChargedFormula& formula);

/// A charge as text: ":z+2".
QString chargeText(int charge);

/// The number with its sign: "+2".
QString signedText(int number);

} // namespace ions
