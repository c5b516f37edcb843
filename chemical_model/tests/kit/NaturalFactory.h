#pragma once

#include "OpenFactory.h"

/// The factory with natural isotopes of all tests that only read one.
inline const OpenFactory& naturalFactory()
{
    static const OpenFactory factory;
    return factory;
}
