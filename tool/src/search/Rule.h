#pragma once

#include "chemistry/Chemistry.h"
#include <Parsed.h>
#include <ProForma.h>

#include <QString>
#include <QStringView>

namespace tool {

/// Where in a chain a rule holds.
enum class RulePosition { Anywhere, NTerm, CTerm, ProteinNTerm, ProteinCTerm };

/// A modification and its places.
///
///     Oxidation@M                  of each M
///     Phospho@STY                  of each S, T and Y
///     Gln->pyro-Glu@Q^N-term       of the left end of peptides that start with Q
///     Acetyl@Protein N-term        of the left end of a protein
///
/// A rule with a position takes that end, not the residue next to it.
struct Rule
{
    ions::Modification modification;
    double mass = 0.0; ///< Monoisotopic, in daltons.
    QString sites;     ///< Letters; empty for any.
    RulePosition position = RulePosition::Anywhere;

    /// Tells whether the rule holds for residues with this letter; at an end for the one next to
    /// it.
    bool takes(QChar letter) const { return sites.isEmpty() || sites.contains(letter); }
    /// Tells whether it takes the left end.
    bool isLeft() const
    {
        return position == RulePosition::NTerm || position == RulePosition::ProteinNTerm;
    }
    /// Tells whether it takes the right end.
    bool isRight() const
    {
        return position == RulePosition::CTerm || position == RulePosition::ProteinCTerm;
    }
    /// Tells whether it holds at ends of proteins only.
    bool isOfProtein() const
    {
        return position == RulePosition::ProteinNTerm || position == RulePosition::ProteinCTerm;
    }

    /// Reads a rule: a name or accession of Unimod, `Formula:...` or a mass with its sign, then `@`
    /// and its places.
    static ions::Parsed<Rule> read(const QString& text, const Chemistry& chemistry);
};

} // namespace tool
