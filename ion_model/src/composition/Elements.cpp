#include "composition/Elements.h"

#include <array>

namespace ions {

namespace {

/// The symbols by atomic number, as IUPAC's periodic table of 2022 has them.
constexpr std::array<const char*, 119> symbols = {
    "",   "H",  "He", "Li", "Be", "B",  "C",  "N",  "O",  "F",  "Ne", "Na", "Mg", "Al", "Si",
    "P",  "S",  "Cl", "Ar", "K",  "Ca", "Sc", "Ti", "V",  "Cr", "Mn", "Fe", "Co", "Ni", "Cu",
    "Zn", "Ga", "Ge", "As", "Se", "Br", "Kr", "Rb", "Sr", "Y",  "Zr", "Nb", "Mo", "Tc", "Ru",
    "Rh", "Pd", "Ag", "Cd", "In", "Sn", "Sb", "Te", "I",  "Xe", "Cs", "Ba", "La", "Ce", "Pr",
    "Nd", "Pm", "Sm", "Eu", "Gd", "Tb", "Dy", "Ho", "Er", "Tm", "Yb", "Lu", "Hf", "Ta", "W",
    "Re", "Os", "Ir", "Pt", "Au", "Hg", "Tl", "Pb", "Bi", "Po", "At", "Rn", "Fr", "Ra", "Ac",
    "Th", "Pa", "U",  "Np", "Pu", "Am", "Cm", "Bk", "Cf", "Es", "Fm", "Md", "No", "Lr", "Rf",
    "Db", "Sg", "Bh", "Hs", "Mt", "Ds", "Rg", "Cn", "Nh", "Fl", "Mc", "Lv", "Ts", "Og"};

constexpr bool isUpper(char16_t c)
{
    return c >= u'A' && c <= u'Z';
}

constexpr bool isLower(char16_t c)
{
    return c >= u'a' && c <= u'z';
}

/// Where a symbol of one or two letters stands among all that could be written.
constexpr std::size_t slotOf(char16_t first, char16_t second)
{
    return std::size_t(first - u'A') * 27 + (second == 0 ? 0 : std::size_t(second - u'a') + 1);
}

constexpr auto numbersBySlot = [] {
    std::array<quint8, std::size_t{26} * 27> numbers{};
    for (std::size_t number = 1; number < symbols.size(); ++number) {
        const char* symbol = symbols[number];
        numbers[slotOf(char16_t(symbol[0]), char16_t(symbol[1]))] = quint8(number);
    }
    return numbers;
}();

} // namespace

quint8 atomicNumberOf(QStringView symbol)
{
    return symbol.size() == symbolLength(symbol) && !symbol.isEmpty()
               ? numbersBySlot[slotOf(symbol[0].unicode(),
                                      symbol.size() > 1 ? symbol[1].unicode() : char16_t(0))]
               : quint8(0);
}

QLatin1StringView symbolOf(quint8 atomicNumber)
{
    return QLatin1StringView(atomicNumber < symbols.size() ? symbols[atomicNumber] : "");
}

qsizetype symbolLength(QStringView text)
{
    if (text.isEmpty() || !isUpper(text[0].unicode()))
        return 0;
    const char16_t first = text[0].unicode();
    if (text.size() > 1 && isLower(text[1].unicode()) &&
        numbersBySlot[slotOf(first, text[1].unicode())] != 0) {
        return 2;
    }
    return numbersBySlot[slotOf(first, 0)] != 0 ? 1 : 0;
}

} // namespace ions
