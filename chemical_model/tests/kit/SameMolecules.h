#pragma once

#include "Differences.h"
#include "TestPrinters.h"

#include <gtest/gtest.h>

/// \file
/// Assertions on molecules and what they are made of, which name the fields that differ. Numbers
/// are the same if all their digits are, so that 0.0 and -0.0 differ.

inline bool isSame(const chem::Molecule& one, const chem::Molecule& other)
{
    return fields::differences(one, other).empty();
}

template <typename T>
void expectSame(const T& actual, const T& expected)
{
    EXPECT_EQ(fields::differences(actual, expected), "");
}

/// What is more than a molecule counts as one beside one.
inline void expectSame(const chem::Molecule& actual, const chem::Molecule& expected)
{
    EXPECT_EQ(fields::differences(actual, expected), "");
}
