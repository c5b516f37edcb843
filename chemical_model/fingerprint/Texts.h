#pragma once

#include "Choices.h"

/// \file
/// Texts as callers write them, and as they should not.

/// A formula of a molecule, a difference with losses, or a text with odd numbers and characters.
QString anyFormulaText(Choices* choices);

/// A formula of whole, positive counts.
QString anyMoleculeText(Choices* choices);

/// A peptide, now and then with letters that are no amino acid.
QString anyPeptideText(Choices* choices, int longest);

/// A strand in the grammar of the standard dictionaries.
QString anyStrandText(Choices* choices, int longest);

/// A text of the characters of a strand, in the grammar or not.
QString anyOligoText(Choices* choices, int longest);

/// A glycan composition, now and then with terms that cannot be used.
QString anyGlycanText(Choices* choices);
