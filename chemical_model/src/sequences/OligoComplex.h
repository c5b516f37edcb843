#pragma once

#include "LinearComplex.h"
#include "sequences/OligoSites.h"

#include <span>

namespace chem {

/// A nucleotide in its place in a chain.
struct PlacedNucleotide
{
    const Nucleotide* nucleotide = nullptr;
    const NucleotideBreaks* breaks = nullptr; ///< Null where they are not known yet.
};

/// Lays nucleotides out between their terminals, which OligoReader chooses.
QSharedPointer<MoleculeComplex> oligoComplex(std::span<const PlacedNucleotide> nucleotides,
                                             const NamedMolecule& fivePrime,
                                             const NamedMolecule& threePrime,
                                             const OligoSites& sites);

} // namespace chem
