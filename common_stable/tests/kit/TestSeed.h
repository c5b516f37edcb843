#pragma once

#include <QString>
#include <QtGlobal>

#include <algorithm>

/// The seed of a test's own random numbers. It is fixed, so that a failure comes from a change of
/// the sources, unless the environment variable ZEL_TEST_SEED asks for other numbers.
inline unsigned testSeed(unsigned number)
{
    return number + qEnvironmentVariable("ZEL_TEST_SEED").toUInt();
}

/// How many random cases a test tries: these, or as many times more as the environment variable
/// ZEL_TEST_ROUNDS asks for.
inline int testRounds(int number)
{
    return number * std::max(1, qEnvironmentVariable("ZEL_TEST_ROUNDS").toInt());
}
