#include "Composition.h"
#include "RefusedTexts.h"
#include "TestPrinters.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace ions {

namespace {

TEST(UnimodText, ReadsElementsIsotopesAndGroups)
{
    const std::vector<std::pair<QString, QString>> texts = {
        {u"H(3) C(2) 13C(2) N O(-1)"_s, u"C2[13C2]H3NO-1"_s},
        {u"O"_s, u"O"_s},
        {u"H(-2)"_s, u"H-2"_s},
        {u"2H(3) C"_s, u"C[2H3]"_s},
        {u"Hex(5) HexNAc(2)"_s, u"C46H76N2O35"_s},
        {u"Ac"_s, u"C2H2O"_s},
        {u"Sulf"_s, u"O3S"_s},
        {u"Me(2)"_s, u"C2H4"_s},
        {u"Water"_s, u"H2O"_s},
        {u"dHex HexA HexN Hep Pent"_s, u"C30H49NO24"_s},
        {u"Kdn NeuAc NeuGc"_s, u"C31H48N2O25"_s},
        {u"Hg"_s, u"Hg"_s},
    };
    for (const auto& [text, canonical] : texts) {
        const Parsed<Composition> read = Composition::readUnimod(text);
        ASSERT_TRUE(read.hasValue()) << text.toStdString();
        EXPECT_EQ(read->toString(), canonical) << text.toStdString();
    }
}

TEST(UnimodText, RefusesOtherText)
{
    const std::vector<RefusedText> texts = {
        {u""_s, 0, u"an element"_s},       {u"H3"_s, 1, u"a blank"_s},
        {u"H(3"_s, 3, u"\")\""_s},         {u"H()"_s, 2, u"a number"_s},
        {u"H(0)"_s, 2, u"other than 0"_s}, {u"H(3)  C"_s, 5, u"an element"_s},
        {u"hex"_s, 0, u"an element"_s},    {u"13Hex"_s, 2, u"an element"_s},
        {u"H "_s, 2, u"an element"_s},     {u"99C"_s, 0, u"mass number"_s},
        {u"0C"_s, 0, u"mass number"_s},    {u"Hex(2147483647)"_s, 0, u"more than"_s},
    };
    expectRefused(&Composition::readUnimod, texts);
}

TEST(UnimodText, OnlyTheTotalOfManyTermsHasToFit)
{
    for (const QString& text : {u"C(2147483647) C C(-1)"_s, u"C(-1) C(2147483647) C"_s,
                                u"C(2147483646) Me H(-2)"_s, u"Me C(2147483647) H(-2) C(-1)"_s})
        EXPECT_EQ(Composition::readUnimod(text).value(), Composition({6, 0}, 2147483647))
            << text.toStdString();
    EXPECT_EQ(Composition::readUnimod(u"C(2147483647) H Me").error().position, 16);
}

} // namespace

} // namespace ions
