#pragma once

#include "ReferenceData.h"
#include <ChemicalFactory.h>

#include <gtest/gtest.h>

/// \file
/// Masses against figures that other programs computed from their own isotope tables: they share
/// neither data nor algorithm with this library, but for the column of IsoSpec++ itself.

/// Compares with each program's figure. `tolerance` is narrowed for the column of IsoSpec++, whose
/// table this is, and widened for one whose atomic masses have fewer digits.
inline void expectFigures(const QJsonValue& figures, double mass, double tolerance)
{
    const QJsonObject columns = figures.toObject();
    for (auto figure = columns.begin(); figure != columns.end(); ++figure) {
        const double printedDigits = 1e-6 + 1e-12 * mass;
        const double fewerDigits = 1e-8 * mass;
        const bool isOwnTable = figure.key() == u"isospec";
        const bool isCoarser = figure.key() == u"openms";
        EXPECT_NEAR(mass, figure.value().toDouble(),
                    isOwnTable ? printedDigits : tolerance + (isCoarser ? fewerDigits : 0.0))
            << figure.key().toStdString();
    }
}

/// Composition and masses of a chain. The averages of the other tables differ by up to 1e-5, as
/// their carbon does.
inline void expectFiguresOfChain(const QJsonValue& row, const chem::Molecule& chain)
{
    const chem::ChemicalFormula formula =
        chem::ChemicalFactory::parseChemicalFormula(row[u"formula"].toString());
    EXPECT_EQ(chain.formula().elementCountMap(), formula.elementCountMap());
    const double mass = chain.monoMass();
    expectFigures(row[u"mono"], mass, 2e-6 + 1e-9 * mass);
    expectFigures(row[u"average"], chain.averageMass(), 1e-5 + 1e-5 * mass);
}

/// What a neutral molecule weighs less than its singly charged peak.
inline double protonMass()
{
    const auto factory = chem::defaultChemicalFactory();
    return factory->constructMolecule(QStringLiteral("H")).monoMass() -
           factory->constructMolecule(QStringLiteral("E")).monoMass();
}
