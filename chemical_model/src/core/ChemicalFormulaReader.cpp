#include "core/ChemicalFormulaReader.h"

#include "core/ElementSymbol.h"
#include "support/Ascii.h"

#include <QStringView>
#include <QVarLengthArray>

#include <algorithm>
#include <map>
#include <utility>

namespace chem {

namespace {

bool isPartOfFormula(QChar character)
{
    return character.isLetterOrNumber() || character == u'-' || character == u'+' ||
           character == u'.';
}

QString withoutSeparators(QString text)
{
    return text.removeIf([](QChar character) { return !isPartOfFormula(character); });
}

/// A symbol and the number behind it.
struct Token
{
    QStringView symbol;
    double count;
};

using Tokens = QVarLengthArray<Token, 16>;

/// The number behind a symbol; 0 if it is none, 1 without any.
double countOf(QStringView number)
{
    constexpr qsizetype exactDigits = 15; // what a double holds of any whole number
    if (number.isEmpty())
        return 1.0;
    if (number.size() > exactDigits || !std::all_of(number.cbegin(), number.cend(), isAsciiDigit))
        return number.toDouble();
    qint64 count = 0;
    for (const QChar digit : number)
        count = 10 * count + (digit.unicode() - u'0');
    return static_cast<double>(count);
}

Token readToken(QStringView text)
{
    const auto symbolEnd =
        std::find_if_not(text.cbegin(), text.cend(), [](QChar c) { return c.isLetter(); });
    const qsizetype symbolLength = symbolEnd - text.cbegin();
    return {text.first(symbolLength), countOf(text.sliced(symbolLength))};
}

/// The tokens of a text without separators: a capital begins each.
Tokens readTokens(QStringView text)
{
    const auto isTokenStart = [](QChar character) {
        return character.isUpper();
    };
    Tokens tokens;
    auto start = std::find_if(text.cbegin(), text.cend(), isTokenStart);
    while (start != text.cend()) {
        const auto end = std::find_if(start + 1, text.cend(), isTokenStart);
        tokens.append(readToken(QStringView(start, end)));
        start = end;
    }
    return tokens;
}

/// Ascending by symbol; equal symbols in the order of the text, so that their sum has its bits.
void sortBySymbol(Tokens* tokens)
{
    std::sort(tokens->begin(), tokens->end(), [](const Token& one, const Token& other) {
        const int order = compareSymbols(one.symbol, other.symbol);
        return order < 0 || (order == 0 && one.symbol.data() < other.symbol.data());
    });
}

/// Sums the counts of each symbol. One search for each element of a map would cost more than all
/// else.
ChemicalFormula formulaOf(const Tokens& sorted)
{
    std::map<QString, double> counts;
    for (auto token = sorted.cbegin(); token != sorted.cend();) {
        const QStringView symbol = token->symbol;
        double count = 0.0;
        for (; token != sorted.cend() && compareSymbols(token->symbol, symbol) == 0; ++token)
            count += token->count;
        counts.emplace_hint(counts.cend(), symbolText(symbol), count);
    }
    QMap<QString, double> map(std::move(counts));
    return ChemicalFormula(map);
}

} // namespace

ChemicalFormula readChemicalFormula(const QString& text)
{
    const bool isCompact = std::all_of(text.cbegin(), text.cend(), isPartOfFormula);
    const QString compact = isCompact ? text : withoutSeparators(text);
    Tokens tokens = readTokens(compact);
    sortBySymbol(&tokens);
    return formulaOf(tokens);
}

} // namespace chem
