#pragma once

#include <Composition.h>
#include <Parsed.h>

#include <QString>

namespace tool {

/// Checks a text of isotopes such as "C13:0.99 C12:0.01" and gives it back with single blanks, as a
/// factory takes it. Refused are entries that are none, isotopes that nature does not know, an
/// isotope named twice, and shares of an element that are neither fractions that add up to 1 within
/// 10^-6 nor whole percentages that add up to 100: a factory would weigh all of these wrong without
/// a word.
ions::Parsed<QString> checkedIsotopes(const QString& text);

} // namespace tool
