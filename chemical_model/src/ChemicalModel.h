#pragma once

/// \file
/// All public headers at once.

/// \defgroup factory Where to start: the factory
/// \brief Reads every text, with the masses of one isotope table.
///
/// defaultChemicalFactory() gives the shared one with natural isotopes;
/// ChemicalFactory::construct() makes another, for labelled samples.

/// \defgroup formulas Formulas and molecules
/// \brief Compositions, and compositions with their two masses.

/// \defgroup chains Chains and their fragment ions
/// \brief A peptide or an oligonucleotide as residues and ways to break, and the ions that it
/// gives.

/// \defgroup molecules Molecules of several parts
/// \brief Chains, links and modifications, and the functions that build molecules from them.

/// \defgroup steps Steps, histories and clips
/// \brief What changes a molecule and records it, and what cuts it into pieces.

/// \defgroup matching Matching with measured masses
/// \brief Which measurements lie within a tolerance of a molecule.

/// \namespace chem
/// The whole library: formulas and molecules, the factory that reads text, complexes and fragments,
/// the structured model, steps, clips and matching. Names in nested namespaces that end in
/// `Internal` only say which types a constructor takes and may change between releases.

#include "ChainFragmenter.h"
#include "ChemicalFactory.h"
#include "ChemicalFormula.h"
#include "Clips.h"
#include "EstablishLink.h"
#include "FragmentType.h"
#include "IsotopeConfiguration.h"
#include "LinearComplex.h"
#include "LinearFragments.h"
#include "Modify.h"
#include "Molecule.h"
#include "MoleculeEntity.h"
#include "MoleculeType.h"
#include "ObservedMassEntity.h"
#include "StructuredBuilders.h"
#include "StructuredMolecule.h"
#include "Transformation.h"
