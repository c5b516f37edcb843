#pragma once

#include <QString>
#include <QStringView>

#include <string_view>

namespace chem {

/// \file
/// Short symbols: a capital and at most one small letter, which all elements have. They are
/// numbered in the order of QString, so that tables take the place of look-ups by text.

constexpr int letterCount = 26;
constexpr int shortSymbolCount = letterCount * (letterCount + 1);

/// The place of "A" to "Z" in the alphabet; -1 for any other text.
constexpr int letterIndex(QStringView symbol)
{
    const int letter = symbol.size() == 1 ? symbol.front().unicode() - u'A' : -1;
    return letter >= 0 && letter < letterCount ? letter : -1;
}

/// The number of a short symbol, ascending in the order of QString; -1 for any other text.
constexpr int shortSymbolIndex(QStringView symbol)
{
    if (symbol.isEmpty() || symbol.size() > 2)
        return -1;
    const int capital = symbol.front().unicode() - u'A';
    const int small = symbol.size() == 2 ? symbol.back().unicode() - u'a' : -1;
    const bool isShort = capital >= 0 && capital < letterCount && small < letterCount &&
                         (small >= 0 || symbol.size() == 1);
    return isShort ? capital * (letterCount + 1) + small + 1 : -1;
}

/// The order of QString. Symbols are so short that a call would cost more than the comparison.
inline int compareSymbols(QStringView one, QStringView other)
{
    const auto viewOf = [](QStringView text) {
        return std::u16string_view(text.utf16(), static_cast<std::size_t>(text.size()));
    };
    return viewOf(one).compare(viewOf(other));
}

/// `symbol` as a text of its own. Short ones come from a table that lives as long as the library,
/// which costs no allocation, and copies of them count no references.
QString symbolText(QStringView symbol);

} // namespace chem
