#pragma once

/// \file
/// Every public header of the library.

#include "AtomMasses.h"
#include "Backbone.h"
#include "Composition.h"
#include "Digest.h"
#include "FormulaSearch.h"
#include "FragmentIons.h"
#include "Ionization.h"
#include "IsotopePattern.h"
#include "ModificationTable.h"
#include "NucleotideTable.h"
#include "Parsed.h"
#include "PeakMatch.h"
#include "ProForma.h"
#include "ResidueTable.h"
#include "Tolerance.h"
