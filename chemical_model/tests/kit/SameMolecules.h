#pragma once

#include "TestPrinters.h"
#include <LinearComplex.h>

#include <gtest/gtest.h>

#include <bit>
#include <cstdint>

/// \file
/// Comparisons of molecules that name the field that differs. Numbers are compared by their bits,
/// so that 0.0 and -0.0 differ.

inline testing::AssertionResult isSameNumber(double actual, double expected)
{
    if (std::bit_cast<std::uint64_t>(actual) == std::bit_cast<std::uint64_t>(expected))
        return testing::AssertionSuccess();
    return testing::AssertionFailure()
           << actual << " and not " << expected << ", off by " << actual - expected;
}

/// The same entries, those at zero included.
inline testing::AssertionResult isSameFormula(const chem::ChemicalFormula& actual,
                                              const chem::ChemicalFormula& expected)
{
    const QMap<QString, double>& counts = actual.elementCountMap();
    const QMap<QString, double>& others = expected.elementCountMap();
    if (counts.keys() != others.keys())
        return testing::AssertionFailure() << "elements " << counts.keys().join(u' ').toStdString()
                                           << " and not " << others.keys().join(u' ').toStdString();
    for (auto count = counts.cbegin(); count != counts.cend(); ++count) {
        if (const auto same = isSameNumber(count.value(), others[count.key()]); !same)
            return testing::AssertionFailure()
                   << count.key().toStdString() << ": " << same.message();
    }
    return testing::AssertionSuccess();
}

inline bool isSame(const chem::Molecule& one, const chem::Molecule& other)
{
    return isSameNumber(one.averageMass(), other.averageMass()) &&
           isSameNumber(one.monoMass(), other.monoMass()) &&
           isSameFormula(one.formula(), other.formula());
}

inline void expectSame(const chem::Molecule& actual, const chem::Molecule& expected)
{
    EXPECT_TRUE(isSameNumber(actual.averageMass(), expected.averageMass()));
    EXPECT_TRUE(isSameNumber(actual.monoMass(), expected.monoMass()));
    EXPECT_TRUE(isSameFormula(actual.formula(), expected.formula()));
}

inline void expectSame(const chem::NamedMolecule& actual, const chem::NamedMolecule& expected)
{
    expectSame(static_cast<const chem::Molecule&>(actual),
               static_cast<const chem::Molecule&>(expected));
    EXPECT_EQ(actual.name, expected.name);
    EXPECT_EQ(actual.code, expected.code);
}

inline void expectSamePart(const char* part, const chem::NamedMolecule& actual,
                           const chem::NamedMolecule& expected)
{
    SCOPED_TRACE(part);
    expectSame(actual, expected);
}

inline void expectSame(const chem::Nucleotide& actual, const chem::Nucleotide& expected)
{
    expectSame(static_cast<const chem::NamedMolecule&>(actual),
               static_cast<const chem::NamedMolecule&>(expected));
    expectSamePart("nucleobase", actual.nucleobase, expected.nucleobase);
    expectSamePart("ribose", actual.ribose, expected.ribose);
    expectSamePart("phosphate", actual.phosphate, expected.phosphate);
}

inline void expectSame(const chem::FragmentationSite& actual,
                       const chem::FragmentationSite& expected)
{
    EXPECT_EQ(actual.type, expected.type);
    expectSame(actual.delta, expected.delta);
    SCOPED_TRACE("what is lost");
    expectSame(actual.lost, expected.lost);
}
