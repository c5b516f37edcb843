#pragma once

#include <QStringView>

#include <algorithm>

namespace ions {

/// The capital of a letter from A to Z in either case; 0 for anything else.
constexpr char16_t capitalOf(char16_t c)
{
    if (c >= u'a' && c <= u'z')
        return char16_t(c - (u'a' - u'A'));
    return c >= u'A' && c <= u'Z' ? c : char16_t(0);
}

/// Whether a character is one of these letters or a digit.
constexpr bool isLetterOrDigit(QChar c)
{
    return capitalOf(c.unicode()) != 0 || (c >= u'0' && c <= u'9');
}

/// Whether two characters are equal but for the case of these letters. Other letters that fold to
/// them, such as the Kelvin sign, stay apart.
constexpr bool isSameLetter(char16_t left, char16_t right)
{
    return left == right || (capitalOf(left) != 0 && capitalOf(left) == capitalOf(right));
}

/// Whether two texts are equal but for the case of these letters.
inline bool isSameWord(QStringView left, QStringView right)
{
    return std::equal(left.begin(), left.end(), right.begin(), right.end(),
                      [](QChar l, QChar r) { return isSameLetter(l.unicode(), r.unicode()); });
}

} // namespace ions
