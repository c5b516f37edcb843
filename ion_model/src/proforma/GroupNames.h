#pragma once

#include "Composition.h"
#include "ModificationTable.h"
#include "Parsed.h"
#include "ProForma.h"
#include "proforma/PartWeigher.h"
#include <zel_chemical_model/MoleculeEntity.h>

#include <optional>
#include <vector>

namespace ions {

/// What a part of a molecule weighs, and its atoms where these weigh it.
struct WeighedAtoms
{
    Masses masses;
    std::optional<Composition> composition;

    /// Weighs a formula; there are no atoms if it does not weigh the masses.
    static WeighedAtoms of(const chem::ChemicalFormula& formula, const Masses& masses,
                           const AtomMasses& atoms);
};

/// Whether the isotopes in place of all atoms of their elements make of `plain` what is labelled.
bool isLabelled(const Composition& plain, const Composition& labelled,
                const std::vector<Atom>& isotopes);

/// The modification that the text between two brackets describes; nothing for any other text.
std::optional<Modification> readModification(const QString& text);

/// Finds what groups of molecules are called as modifications: by their own name, else by what they
/// are made of.
class GroupNames
{
public:
    /// What is given has to live as long as this object.
    GroupNames(const ModificationTable& modifications, const PartWeigher& weigher,
               const AtomMasses& atoms, const std::vector<Atom>& isotopes)
        : m_modifications(modifications)
        , m_weigher(weigher)
        , m_atoms(atoms)
        , m_isotopes(isotopes)
    {
    }

    /// The modification that a group is, with the label that its name has. Vocabularies are asked
    /// in their order where the name tells nothing.
    Parsed<Modification> of(const chem::MoleculeEntity& group,
                            const std::vector<Vocabulary>& vocabularies) const;
    /// The same for a group without a name.
    Parsed<Modification> of(const WeighedAtoms& group,
                            const std::vector<Vocabulary>& vocabularies) const;

    /// Whether a modification weighs what a group weighs.
    bool isSame(const Modification& modification, const WeighedAtoms& group) const;
    /// What an entity weighs.
    WeighedAtoms weighed(const chem::MoleculeEntity& group) const;

    /// A modification of these atoms alone.
    static Modification formula(const Composition& composition);

private:
    std::optional<Modification> entryOf(const WeighedAtoms& group, Vocabulary vocabulary) const;
    Modification written(const ModificationEntry& entry, const WeighedAtoms& group) const;

    const ModificationTable& m_modifications;
    const PartWeigher& m_weigher;
    const AtomMasses& m_atoms;
    const std::vector<Atom>& m_isotopes;
};

} // namespace ions
