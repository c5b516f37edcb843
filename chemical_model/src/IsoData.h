#pragma once

#include "ChemicalFactory.h"

#include <QList>

#include <IsoSpec++/isoSpec++.h>

namespace chem {

/// An IsoSpec++ molecule with the arrays that it was built from. Lives as long as the calculation.
struct ChemicalFactory::IsoData
{
    QList<int> isotopeNumbers;          ///< For each kept element the number of its isotopes.
    QList<int> atomCounts;              ///< For each kept element its count.
    QList<double> isotopeMasses;        ///< The masses of all isotopes, element after element.
    QList<double> isotopeProbabilities; ///< The abundances, in step with the masses.
    IsoSpec::Iso iso;                   ///< What IsoSpec++ made of them.
};

} // namespace chem
