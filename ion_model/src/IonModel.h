#pragma once

/// \file
/// Every public header of the library.

#include "AtomMasses.h"
#include "Composition.h"
#include "FormulaSearch.h"
#include "IsotopePattern.h"
#include "Parsed.h"
#include "Tolerance.h"
