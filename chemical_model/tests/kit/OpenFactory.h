#pragma once

#include "IsoSpecMasses.h"
#include <ChemicalFactory.h>

/// A factory whose tables can be read, as any derived class can read them.
struct OpenFactory : public chem::ChemicalFactory
{
    struct WithoutInit
    {
    };

    explicit OpenFactory(const QString& configuration = QString()) { init(configuration); }
    explicit OpenFactory(WithoutInit) {}

    using ChemicalFactory::amine;
    using ChemicalFactory::ammonia;
    using ChemicalFactory::buildingBlocks;
    using ChemicalFactory::defaultPhosphate;
    using ChemicalFactory::defaultRibose;
    using ChemicalFactory::electron;
    using ChemicalFactory::formyl;
    using ChemicalFactory::hydrogen;
    using ChemicalFactory::hydrogenPair;
    using ChemicalFactory::hydroxyl;
    using ChemicalFactory::IsotopeRecord;
    using ChemicalFactory::isotopes;
    using ChemicalFactory::isotopesByAtomicNumber;
    using ChemicalFactory::isotopesByName;
    using ChemicalFactory::isotopesBySymbol;
    using ChemicalFactory::oxygen;
    using ChemicalFactory::proton;
    using ChemicalFactory::sharedExtension;
    using ChemicalFactory::water;
    using ChemicalFactory::waterPair;

    /// The rows of a symbol as IsoSpec++ takes them.
    IsoSpecElement element(const QString& symbol, int count) const
    {
        IsoSpecElement element;
        element.count = count;
        for (const qsizetype position : isotopesBySymbol.value(symbol)) {
            element.masses.append(isotopes[position].mass);
            element.abundances.append(isotopes[position].abundance);
        }
        return element;
    }
};
