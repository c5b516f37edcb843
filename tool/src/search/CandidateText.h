#pragma once

#include "search/Search.h"

#include <QString>

namespace tool {

/// A candidate as ProForma, in its canonical form.
QString peptidoformText(const Candidate& candidate, const Rules& rules);

/// The peptide backwards, but for its last residue, or its first where cuts lie before a residue: a
/// false peptide with a true one's length, mass and end. Twice gives the peptide itself.
QString reversedPeptide(QStringView letters, bool isCutBefore);

/// The letters of a candidate's peptide; for a decoy those that were reversed.
QString targetLetters(const Candidate& candidate, bool isCutBefore);

/// Tells whether an agent cuts in front of the residues that it looks for, and behind none.
bool cutsBefore(const ions::CleavageAgent& agent);

} // namespace tool
