#include "core/ElementSymbol.h"

#include <array>

namespace chem {

namespace {

using SymbolText = std::array<char16_t, 3>; // ends in a null character

constexpr std::array<SymbolText, shortSymbolCount> makeShortSymbols()
{
    std::array<SymbolText, shortSymbolCount> texts{};
    std::size_t index = 0;
    for (char16_t capital = u'A'; capital <= u'Z'; ++capital) {
        texts[index++] = {capital};
        for (char16_t small = u'a'; small <= u'z'; ++small)
            texts[index++] = {capital, small};
    }
    return texts;
}

constexpr std::array<SymbolText, shortSymbolCount> shortSymbols = makeShortSymbols();

} // namespace

QString symbolText(QStringView symbol)
{
    const int index = shortSymbolIndex(symbol);
    if (index < 0)
        return symbol.toString();
    const SymbolText& text = shortSymbols[static_cast<std::size_t>(index)];
    return QString::fromRawData(reinterpret_cast<const QChar*>(text.data()), symbol.size());
}

} // namespace chem
