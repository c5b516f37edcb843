#pragma once

#include <QString>
#include <QtGlobal>

/// The seed of a test's own random numbers. It is fixed, so that a failure comes from a change of
/// the sources, unless the environment variable ZEL_TEST_SEED asks for other numbers.
inline unsigned testSeed(unsigned number)
{
    return number + qEnvironmentVariable("ZEL_TEST_SEED").toUInt();
}
