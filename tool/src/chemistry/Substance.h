#pragma once

#include "chemistry/Chemistry.h"
#include <Backbone.h>
#include <Composition.h>
#include <Parsed.h>

#include <QString>

#include <limits>
#include <vector>

namespace tool {

/// How a text writes a molecule.
enum class Notation { ProForma, Oligo, Formula, Glycan };

/// What a text comes to: one molecule, with the charge that the text states.
struct Substance
{
    ions::Masses masses; ///< Neutral, labile parts included, without charge carriers.
    ions::Parsed<ions::Composition> composition = ions::Composition(); ///< Or why there is none.
    int charge = 0;             ///< 0 where the text states none.
    int ownCharge = 0;          ///< Of the charge, what formulas on the molecule bear.
    ions::Composition carriers; ///< Atoms that come on top at that charge.
    double mz = std::numeric_limits<double>::quiet_NaN(); ///< NaN without a charge.
};

/// The text in its canonical form. Oligonucleotide text, which has one form only, comes back as it
/// is.
ions::Parsed<QString> canonicalText(const QString& text, Notation notation,
                                    const Chemistry& chemistry);

/// The molecules of a text: one, or several where ProForma joins peptidoform ions by `+`.
ions::Parsed<std::vector<Substance>> readSubstances(const QString& text, Notation notation,
                                                    const Chemistry& chemistry);

/// The molecule of a text that holds only one.
ions::Parsed<Substance> readSubstance(const QString& text, Notation notation,
                                      const Chemistry& chemistry);

/// What the fragments of a text's molecule are made of.
struct LaidOut
{
    ions::Backbone backbone;
    std::vector<ions::Atom> isotopes; ///< Of all its atoms, losses included.
};

/// Lays out the molecule of a text. Refused for formulas and glycans.
ions::Parsed<LaidOut> layOut(const QString& text, Notation notation, const Chemistry& chemistry);

} // namespace tool
