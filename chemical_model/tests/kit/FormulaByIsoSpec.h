#pragma once

#include "OpenFactory.h"

#include <gtest/gtest.h>

/// The elements of a formula that IsoSpec++ can take: those of which there is an atom and that the
/// table of the factory has.
inline QList<IsoSpecElement> isoSpecElementsOf(const chem::ChemicalFormula& formula,
                                               const OpenFactory& factory)
{
    QList<IsoSpecElement> elements;
    const QMap<QString, double>& counts = formula.elementCountMap();
    for (auto entry = counts.cbegin(); entry != counts.cend(); ++entry) {
        if (entry.value() > 0 && factory.isotopesBySymbol.contains(entry.key()))
            elements.append(factory.element(entry.key(), static_cast<int>(entry.value())));
    }
    return elements;
}

/// Both masses of a formula are those that IsoSpec++ gives for the whole molecule, by `oracle`.
inline void expectMassesOfIsoSpec(const chem::ChemicalFormula& formula, const OpenFactory& factory,
                                  MassPair (*oracle)(const QList<IsoSpecElement>&))
{
    MassPair own;
    factory.calculateMassesForFormula(formula, &own.mono, &own.average);
    const MassPair expected = oracle(isoSpecElementsOf(formula, factory));
    EXPECT_TRUE(isMassOfIsoSpec(own.mono, expected.mono)) << formula.toString().toStdString();
    EXPECT_TRUE(isMassOfIsoSpec(own.average, expected.average)) << formula.toString().toStdString();
}
