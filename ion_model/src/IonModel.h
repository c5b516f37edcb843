#pragma once

/// \file
/// Every public header of the library.

/// \defgroup ion_compositions Compositions, masses and charges
/// \brief Formulas with isotopes read strictly, and what gives or takes a charge.

/// \defgroup ion_tables Residues, nucleotides and modifications
/// \brief What letters weigh, and what the vocabularies of the field name.

/// \defgroup ion_notation Peptidoforms in ProForma
/// \brief The field's notation: read, written, weighed and fragmented.

/// \defgroup ion_digests Digests
/// \brief Proteins and RNA in pieces, with their masses.

/// \defgroup ion_fragments Fragment ions
/// \brief Molecules as fragmentation sees them, and their ions as plain arrays.

/// \defgroup ion_patterns Isotope patterns and formulas of masses
/// \brief Nominal masses with their centroids, single isotopologues, and the way back from a mass.

/// \defgroup ion_peaks Tolerances and peaks
/// \brief Which ions a spectrum shows.

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
