#pragma once

/// \file
/// All public headers at once.

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
