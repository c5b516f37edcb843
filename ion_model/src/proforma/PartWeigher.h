#pragma once

#include "AtomMasses.h"
#include "Composition.h"
#include "ModificationTable.h"
#include "Parsed.h"
#include "ProForma.h"
#include "ResidueTable.h"

#include <optional>
#include <vector>

namespace ions {

/// What one part of a peptidoform weighs.
struct PartWeight
{
    Masses masses;           ///< Less the electrons of its charges.
    Composition composition; ///< Its atoms, as far as they are known.
    bool isBare = false;     ///< Whether there is mass that no atoms are known for.
    int charge = 0;
    const ModificationEntry* entry = nullptr; ///< What a table knows of it, its losses.
};

/// Whether two parts add the same to a molecule, whatever they are called.
bool isSameWeight(const PartWeight& left, const PartWeight& right);

/// Weighs parts of peptidoforms by tables, in the isotopes that the peptidoform states.
class PartWeigher
{
public:
    /// The tables and isotopes have to live as long as this object.
    PartWeigher(const ResidueTable& residues, const ModificationTable& modifications,
                const std::vector<Atom>& isotopes)
        : m_residues(residues)
        , m_modifications(modifications)
        , m_isotopes(isotopes)
    {
    }

    /// Why the isotopes cannot hold at once, if so, or which of them has no mass.
    std::optional<Error> refusal() const;

    /// Whether the peptidoform states isotopes.
    bool hasIsotopes() const { return !m_isotopes.empty(); }

    /// A hydrogen that is in no isotope that the peptidoform states, as charge carriers are.
    Masses hydrogen() const { return m_residues.atoms().of({1, 0}); }

    /// Atoms in the isotopes of the peptidoform.
    Parsed<PartWeight> atoms(Composition composition) const;
    /// A residue in a chain; Error for letters without mass.
    Parsed<PartWeight> residue(char16_t letter) const;
    /// A modification by the first of its tags that has a mass; one without tags has none.
    Parsed<PartWeight> modification(const Modification& modification) const;
    /// What breaks of the chain add and take.
    BreakMasses breaks() const;

private:
    Parsed<PartWeight> tag(const Tag& tag) const;
    Parsed<PartWeight> formula(const ChargedFormula& formula) const;
    Parsed<PartWeight> glycan(const std::vector<GlycanPart>& parts) const;
    Parsed<PartWeight> entry(const Tag& tag) const;
    const ModificationEntry* find(const Tag& tag) const;
    Error refusalOf(const Tag& tag) const;

    const ResidueTable& m_residues;
    const ModificationTable& m_modifications;
    const std::vector<Atom>& m_isotopes;
};

} // namespace ions
