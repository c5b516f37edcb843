#pragma once

#include "LinearComplex.h"

#include <span>

namespace chem {

/// \file
/// How the generators of fragments read a complex, whose lists are public: one that a caller has
/// edited may hold null pointers, which add nothing, and fewer lists of sites than residues.
///
/// Its pointers let residues and sites be written, so whatever reads one takes it as const: a text
/// that is read as a non-const one makes a copy of itself first, inside the complex that other
/// threads are reading.

/// The sites at a position, from 0; none behind the last list.
inline std::span<const QSharedPointer<FragmentationSite>> sitesAt(const MoleculeComplex& complex,
                                                                  qsizetype position)
{
    if (position >= complex.sites.size())
        return {};
    const QList<QSharedPointer<FragmentationSite>>& sites = complex.sites[position];
    return {sites.constData(), static_cast<std::size_t>(sites.size())};
}

} // namespace chem
