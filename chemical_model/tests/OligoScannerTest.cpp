#include "OligoScanner.h"

#include "TestPrinters.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

chem::OligoScanner defaultScanner()
{
    return chem::OligoScanner({u"\\[{"_s, u"+defmr"_s, u"ACGQTU"_s, u"*."_s, u"\\]}"_s});
}

QStringList unitTexts(const chem::OligoScanner& scanner, const QString& body)
{
    QStringList texts;
    for (const chem::OligoUnit& unit : scanner.units(body))
        texts.append(unit.text.toString());
    return texts;
}

TEST(OligoScanner, SplitsMarksFromTheBody)
{
    const QString text = u"{rA*C]"_s;
    const auto parts = defaultScanner().split(text);
    ASSERT_TRUE(parts);
    EXPECT_EQ(parts->fivePrimeMark.toString(), u"{"_s);
    EXPECT_EQ(parts->body.toString(), u"rA*C"_s);
    EXPECT_EQ(parts->threePrimeMark.toString(), u"]"_s);
    EXPECT_FALSE(defaultScanner().split(u"{}"));
}

TEST(OligoScanner, CutsNumbersAsLongAsTheyGo)
{
    EXPECT_EQ(unitTexts(defaultScanner(), u"A.5"_s), QStringList({u"A."_s, u"5"_s}));
    EXPECT_EQ(unitTexts(defaultScanner(), u"1.5.5"_s), QStringList({u"1.5."_s, u"5"_s}));
    EXPECT_EQ(unitTexts(defaultScanner(), u"1.."_s), QStringList({u"1.."_s}));
    EXPECT_EQ(unitTexts(defaultScanner(), u"1+5-7r.5"_s),
              QStringList({u"1"_s, u"+5"_s, u"-7"_s, u"r.5"_s}));
}

TEST(OligoScanner, SkipsWhatBelongsToNoUnit)
{
    EXPECT_EQ(unitTexts(defaultScanner(), u"..A?*C"_s), QStringList({u"A"_s, u"C"_s}));
    EXPECT_EQ(unitTexts(defaultScanner(), u"rr+"_s), QStringList());
}

TEST(OligoScanner, OverlappingAlphabetsAreResolvedAsTheExpressionPrefers)
{
    // "a" is a ribose, a base and a 5' mark: one must be left for the base, and the mark comes
    // first.
    const chem::OligoScanner scanner({u"a"_s, u"a"_s, u"a"_s, u"*"_s, u"a"_s});
    const QString one = u"a"_s;
    EXPECT_EQ(scanner.split(one)->body.toString(), u"a"_s);
    EXPECT_TRUE(scanner.split(one)->fivePrimeMark.isEmpty());
    const QString two = u"aa"_s;
    EXPECT_EQ(scanner.split(two)->fivePrimeMark.toString(), u"a"_s);
    const QString three = u"aaa"_s;
    EXPECT_EQ(scanner.split(three)->body.toString(), u"aa"_s);
    EXPECT_TRUE(scanner.split(three)->threePrimeMark.isEmpty());
}

TEST(OligoScanner, CharactersBeyondSixteenBitsAreOne)
{
    const chem::OligoScanner scanner({u"\\["_s, u"r"_s, u"😀A"_s, u"*"_s, u"\\]"_s});
    EXPECT_TRUE(scanner.matches(u"r😀*A"));
    EXPECT_EQ(unitTexts(scanner, u"r😀*A"_s), QStringList({u"r😀*"_s, u"A"_s}));
    EXPECT_FALSE(scanner.matches(QString(QChar(0xd83d))));
    EXPECT_FALSE(scanner.matches(u"😁"));
}

} // namespace
