#include "core/ElementSymbol.h"

#include <gtest/gtest.h>

#include <set>

using namespace Qt::StringLiterals;

namespace {

/// Every text of one or two characters up to U+00FF.
std::set<QString> shortTexts()
{
    std::set<QString> texts;
    for (char16_t first = 0; first < 0x100; ++first) {
        texts.insert(QChar(first));
        for (char16_t second = 0; second < 0x100; ++second)
            texts.insert(QString(QChar(first)) + QChar(second));
    }
    return texts;
}

bool isSymbol(const QString& text)
{
    const auto isBetween = [](QChar character, char16_t least, char16_t most) {
        return character >= least && character <= most;
    };
    return isBetween(text[0], u'A', u'Z') && (text.size() == 1 || isBetween(text[1], u'a', u'z'));
}

TEST(ElementSymbol, NumbersCountTheSymbolsInTheOrderOfTexts)
{
    int expected = 0;
    for (const QString& text : shortTexts())
        EXPECT_EQ(chem::shortSymbolIndex(text), isSymbol(text) ? expected++ : -1)
            << text.toStdString();
    EXPECT_EQ(expected, chem::shortSymbolCount);
    EXPECT_EQ(chem::shortSymbolIndex({}), -1);
    EXPECT_EQ(chem::shortSymbolIndex(u"Hex"), -1);
}

TEST(ElementSymbol, LettersHaveTheirPlacesInTheAlphabet)
{
    for (const QString& text : shortTexts()) {
        const bool isLetter = text.size() == 1 && isSymbol(text);
        EXPECT_EQ(chem::letterIndex(text), isLetter ? text[0].unicode() - u'A' : -1)
            << text.toStdString();
    }
    EXPECT_EQ(chem::letterIndex({}), -1);
}

TEST(ElementSymbol, TextOfAShortSymbolCountsNoReferences)
{
    for (const QString& symbol : {u"C"_s, u"Na"_s, u"Zz"_s}) {
        const QString text = chem::symbolText(symbol);
        EXPECT_EQ(text, symbol);
        EXPECT_EQ(text.capacity(), 0);
        EXPECT_EQ(chem::symbolText(symbol).constData(), text.constData());
    }
    const QString longSymbol = u"Hexose"_s;
    EXPECT_EQ(chem::symbolText(longSymbol), longSymbol);
}

} // namespace
