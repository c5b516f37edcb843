#pragma once

/// \file
/// Every public header of the library.

#include "AtomMasses.h"
#include "Composition.h"
#include "Digest.h"
#include "Parsed.h"
#include "PeakMatch.h"
#include "ResidueTable.h"
#include "Tolerance.h"
