#pragma once

/// \file
/// All public headers at once.

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
