#pragma once

#include "Composition.h"
#include "Parsed.h"

#include <QString>

#include <gtest/gtest.h>

#include <ostream>

/// Lets GoogleTest print texts as text when an expectation fails.
inline void PrintTo(const QString& text, std::ostream* stream)
{
    *stream << '"' << text.toStdString() << '"';
}

namespace ions {

inline void PrintTo(const Composition& composition, std::ostream* stream)
{
    *stream << composition.toString().toStdString();
}

/// The composition of a formula that is known to be right.
inline Composition formula(const QString& text)
{
    return Composition::read(text).value();
}

} // namespace ions
