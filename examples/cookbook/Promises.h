#pragma once

#include <QTextStream>

#include <cmath>

/// \file
/// Whether an example gives what its comment promises: a recipe fails that prints FAILED.

inline void require(bool isTrue, const char* what, QTextStream& out)
{
    out << (isTrue ? "ok " : "FAILED ") << what << '\n';
}

inline bool isNear(double value, double promised, double within)
{
    return std::abs(value - promised) <= within;
}
