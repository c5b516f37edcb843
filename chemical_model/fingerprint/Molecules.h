#pragma once

#include "Choices.h"
#include <ChemicalModel.h>

/// \file
/// Structured molecules and their parts, places outside the molecule among them.

/// A group that a modification or link adds or takes away; now and then a bare mass or nothing.
chem::MoleculeEntity anyGroup(Choices* choices);

/// A position near a chain or residue that may exist.
std::pair<int, int> anyPosition(Choices* choices);

/// A group with no place, one or several.
chem::Modification anyModification(Choices* choices);

/// A bridge between two positions.
chem::Link anyLink(Choices* choices);

/// A chain of a text, or one of residues put together by hand.
chem::Chain anyChain(Choices* choices);

/// Up to three chains with modifications and links.
chem::MoleculeEntity anyMolecule(Choices* choices);
