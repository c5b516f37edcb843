#pragma once

#include <QChar>

namespace chem {

/// \file
/// Classes of ASCII characters. QChar's own go by Unicode, whose digits and blanks no notation of
/// this library has.

constexpr bool isAsciiDigit(QChar character)
{
    return character >= u'0' && character <= u'9';
}

/// White space as expressions have it in `\s`.
constexpr bool isAsciiBlank(QChar character)
{
    return character == u' ' || (character >= u'\t' && character <= u'\r');
}

} // namespace chem
