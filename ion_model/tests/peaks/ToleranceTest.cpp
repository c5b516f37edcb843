#include "Tolerance.h"

#include "RefusedTexts.h"
#include "TestPrinters.h"

#include <gtest/gtest.h>

#include <limits>

using namespace Qt::StringLiterals;

namespace ions {

namespace {

TEST(Tolerance, PartsPerMillionAreOfTheCalculatedValue)
{
    EXPECT_DOUBLE_EQ(ppm(10).around(1000.0), 0.01);
    EXPECT_DOUBLE_EQ(ppm(10).lowest(1000.0), 999.99);
    EXPECT_DOUBLE_EQ(ppm(10).highest(1000.0), 1000.01);
    EXPECT_DOUBLE_EQ(ppm(10).around(-1000.0), 0.01);
    EXPECT_DOUBLE_EQ(ppmError(1000.005, 1000.0), (1000.005 - 1000.0) / 1000.0 * 1e6);
    EXPECT_LT(ppmError(999.0, 1000.0), 0.0);
}

TEST(Tolerance, DaltonsAreTheSameAtEveryMass)
{
    EXPECT_EQ(daltons(0.5).around(1.0), 0.5);
    EXPECT_EQ(daltons(0.5).around(1e6), 0.5);
}

TEST(Tolerance, TheIntervalIsClosed)
{
    EXPECT_TRUE(daltons(0.5).accepts(99.5, 100.0));
    EXPECT_TRUE(daltons(0.5).accepts(100.5, 100.0));
    EXPECT_FALSE(daltons(0.5).accepts(100.5000001, 100.0));
    EXPECT_TRUE(Tolerance().accepts(7.0, 7.0));
    EXPECT_FALSE(Tolerance().accepts(7.0000001, 7.0));
}

TEST(Tolerance, NotANumberIsNeverAccepted)
{
    const double nan = std::numeric_limits<double>::quiet_NaN();
    EXPECT_FALSE(daltons(0.5).accepts(nan, 100.0));
    EXPECT_FALSE(daltons(0.5).accepts(100.0, nan));
}

TEST(Tolerance, WidthsThatAreNoneCountAsZero)
{
    EXPECT_EQ(ppm(-1), Tolerance());
    EXPECT_EQ(daltons(std::numeric_limits<double>::quiet_NaN()), Tolerance());
}

TEST(Tolerance, ReadsItsTextForms)
{
    EXPECT_EQ(Tolerance::read(u"10ppm").value(), ppm(10));
    EXPECT_EQ(Tolerance::read(u"10 PPM").value(), ppm(10));
    EXPECT_EQ(Tolerance::read(u"0.02Da").value(), daltons(0.02));
    EXPECT_EQ(Tolerance::read(u"0.02 da").value(), daltons(0.02));
    EXPECT_EQ(Tolerance::read(u"0Da").value(), Tolerance());
}

TEST(Tolerance, RefusesOtherText)
{
    const std::vector<RefusedText> texts = {
        {u""_s, 0, u"a number"_s},
        {u"ppm"_s, 0, u"a number"_s},
        {u"-1ppm"_s, 0, u"a number"_s},
        {u"10"_s, 2, u"the unit"_s},
        {u"10 "_s, 3, u"the unit"_s},
        {u"10%"_s, 2, u"the unit"_s},
        {u"1.2.3Da"_s, 0, u"a number"_s},
        {u"10ppm "_s, 2, u"the unit"_s},
        {u"0,02Da"_s, 1, u"the unit"_s},
        {u"nanDa"_s, 0, u"a number"_s},
        {QString(400, u'9') + u"Da", 0, u"a number"_s},
    };
    expectRefused(&Tolerance::read, texts);
}

} // namespace

} // namespace ions
