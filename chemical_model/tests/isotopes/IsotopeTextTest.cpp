#include "isotopes/IsotopeText.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

TEST(IsotopeText, EntriesAreSeparatedByRunsOfWhiteSpace)
{
    const auto entries = chem::readIsotopeText(u"C13:0.99 \t\n C12:0.01"_s);
    ASSERT_TRUE(entries);
    ASSERT_EQ(entries->size(), 2);
    EXPECT_EQ(entries->at(0).symbol, u"C"_s);
    EXPECT_EQ(entries->at(0).massNumber, 13);
    EXPECT_EQ(entries->at(0).abundance, 0.99);
    EXPECT_EQ(entries->at(1).massNumber, 12);
    EXPECT_EQ(entries->at(1).abundance, 0.01);
}

TEST(IsotopeText, SymbolEndsAtTheFirstDigitAndNumbersThatAreNoneAreZero)
{
    const auto entries = chem::readIsotopeText(u"any text1x:0.5%:7"_s);
    EXPECT_FALSE(entries); // "any" has no digit
    const auto odd = chem::readIsotopeText(u"anytext1x:0.5%:7"_s);
    ASSERT_TRUE(odd);
    EXPECT_EQ(odd->at(0).symbol, u"anytext"_s);
    EXPECT_EQ(odd->at(0).massNumber, 0);
    EXPECT_EQ(odd->at(0).abundance, 0.0);
}

TEST(IsotopeText, OneEntryThatCannotBeReadRefusesAll)
{
    for (const QString& text : {u""_s, u" "_s, u" C13:1"_s, u"C13:1 "_s, u"13C:1"_s, u"C:1"_s,
                                u"C13"_s, u"C13:1 N"_s, u":"_s,
                                u"C\xd800"
                                "13:1"_s})
        EXPECT_FALSE(chem::readIsotopeText(text)) << text.toStdString();
}

TEST(IsotopeText, BlanksAndDigitsAreThoseOfAscii)
{
    EXPECT_EQ(chem::readIsotopeText(u"C13:1\u00a0N15:1"_s)->size(), 1); // a no-break space
    EXPECT_FALSE(chem::readIsotopeText(u"C\u0661\u0663:1"_s));          // Arabic digits
}

} // namespace
