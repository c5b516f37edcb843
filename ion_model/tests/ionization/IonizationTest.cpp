#include "Ionization.h"

#include "RefusedTexts.h"
#include "TestPrinters.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <limits>
#include <ostream>

using namespace Qt::StringLiterals;

namespace ions {

namespace {

Ionization ion(const QString& text)
{
    return Ionization::read(text).value();
}

struct AdductCase
{
    QString text;
    double mz = 0.0; ///< Of glucose, 180.063388 Da.
};

void PrintTo(const AdductCase& adduct, std::ostream* stream)
{
    *stream << adduct.text.toStdString();
}

class AdductTable : public testing::TestWithParam<AdductCase>
{
};

/// The m/z of glucose's adducts by hand: 180.063388 and the masses of H 1.007825, Na 22.989770,
/// K 38.963706, N 14.003074, Cl 34.968853, C 12, O 15.994915 and the electron 0.000549.
TEST_P(AdductTable, IonsHaveTheMassOfTheirAtomsLessTheirElectrons)
{
    EXPECT_NEAR(ion(GetParam().text).mz(180.063388), GetParam().mz, 2e-5)
        << GetParam().text.toStdString();
}

INSTANTIATE_TEST_SUITE_P(
    Ionization, AdductTable,
    testing::Values(AdductCase{u"[M+H]+"_s, 181.070664}, AdductCase{u"[M+Na]+"_s, 203.052609},
                    AdductCase{u"[M+K]+"_s, 219.026546}, AdductCase{u"[M+NH4]+"_s, 198.097213},
                    AdductCase{u"[M-H]-"_s, 179.056112}, AdductCase{u"[M+Cl]-"_s, 215.032790},
                    AdductCase{u"[M+HCOO]-"_s, 225.061591}, AdductCase{u"[2M+H]+"_s, 361.134052},
                    AdductCase{u"[2M-H]-"_s, 359.119500}, AdductCase{u"[M+2H]2+"_s, 91.038970},
                    AdductCase{u"[M+H+Na]2+"_s, 102.029942}, AdductCase{u"[M-2H]2-"_s, 89.024418},
                    AdductCase{u"[M]+."_s, 180.062839}, AdductCase{u"[M]-."_s, 180.063937},
                    AdductCase{u"[M+3H]2+."_s, 91.542883}, AdductCase{u"[M+2H]+."_s, 182.078489},
                    AdductCase{u"[M-2H]-."_s, 178.048287}, AdductCase{u"[M+D]+"_s, 182.076941},
                    AdductCase{u"[M+H-H2O]+"_s, 163.060099},
                    AdductCase{u"[M-2H+Na]-"_s, 201.038057},
                    AdductCase{u"[M+2Na-H]+"_s, 225.034554}));

TEST(Ionization, TheCanonicalTextReadsBack)
{
    for (const QString& text : {u"[M+2H]2+"_s, u"[M-3H]3-"_s, u"[M+H+Na]2+"_s, u"[2M+H]+"_s,
                                u"[M]+."_s, u"[M]+"_s, u"[M+[13C]H3]+"_s, u"[M+Fe]3+"_s}) {
        EXPECT_EQ(ion(text).toString(), text);
        EXPECT_EQ(ion(ion(text).toString()), ion(text));
    }
    EXPECT_EQ(ion(u"[M+1H]1+"_s).toString(), u"[M+H]+"_s);
    EXPECT_EQ(ion(u"+2"_s).toString(), u"[M+2H]2+"_s);
    EXPECT_EQ(ion(u"-3"_s).toString(), u"[M-3H]3-"_s);
}

TEST(Ionization, APlainNumberCountsProtons)
{
    EXPECT_EQ(ion(u"+2"_s), Ionization::protons(2));
    EXPECT_EQ(ion(u"-1"_s), Ionization::protons(-1));
    EXPECT_EQ(Ionization::protons(0), Ionization::protons(1));
    EXPECT_NEAR(Ionization::protons(1).mz(0.0), 1.00727646, 1e-7);
    EXPECT_NEAR(Ionization::protons(-1).mz(0.0), -1.00727646, 1e-7);
    EXPECT_EQ(Ionization::protons(std::numeric_limits<int>::min()).charge(), -2147483647);
}

TEST(Ionization, AverageMassesTakeAverageCarriers)
{
    EXPECT_NEAR(ion(u"[M+Cl]-"_s).averageMz(100.0), 135.4532 + 0.00055, 1e-3);
}

TEST(Ionization, CarriersHaveToAddUpToTheCharge)
{
    const std::vector<RefusedText> texts = {
        {u"[M+2H]+"_s, 6, u"which is 2"_s},      {u"[M+H]2+"_s, 5, u"which is 1"_s},
        {u"[M+H]-"_s, 5, u"which is 1"_s},       {u"[M+Cl]+"_s, 6, u"which is -1"_s},
        {u"[M+Ca]+"_s, 6, u"which is 2"_s},      {u"[M+H2O]+"_s, 7, u"which is 0"_s},
        {u"[M+D]-"_s, 5, u"which is 1"_s},       {u"[M+[15N]D4]2+"_s, 11, u"which is 1"_s},
        {u"[M+H2]+"_s, 6, u"which is 2"_s},      {u"[M+[2H2]]+"_s, 9, u"which is 2"_s},
        {u"[M+(NH4)2]+"_s, 10, u"which is 2"_s},
    };
    expectRefused(&Ionization::read, texts);
    EXPECT_TRUE(Ionization::read(u"[M+Fe]2+"_s).hasValue());
    EXPECT_TRUE(Ionization::read(u"[M+COOH]-"_s).hasValue()); // formate, otherwise written
    for (const QString& text :
         {u"[M+D]+"_s, u"[M+H2]2+"_s, u"[M+HD]2+"_s, u"[M+2(NH4)2]4+"_s, u"[M+(NH4)]+"_s,
          u"[M+[13C]OD3OD+H]+"_s, u"[M+C4H6O4+H]+"_s}) // succinic acid, which is no two acetates
        EXPECT_TRUE(Ionization::read(text).hasValue()) << text.toStdString();
}

TEST(Ionization, TheDotOfARadicalIsOneElectron)
{
    const std::vector<RefusedText> texts = {
        {u"[M]2+."_s, 3, u"which is 0"_s},    {u"[M+H]+."_s, 5, u"which is 1"_s},
        {u"[M+3H]+."_s, 6, u"which is 3"_s},  {u"[M-2H]2-."_s, 6, u"which is -2"_s},
        {u"[M+3H]2+"_s, 6, u"which is 3"_s},  {u"[M+H]-."_s, 5, u"which is 1"_s},
        {u"[M+2H]4+."_s, 6, u"which is 2"_s},
    };
    expectRefused(&Ionization::read, texts);
    for (const QString& text : {u"[M+H]2+."_s, u"[M-H]2-."_s, u"[M+H2O]+."_s, u"[M+Cl]2-."_s,
                                u"[M+Fe]+."_s, u"[M+3H]2+."_s, u"[M-2H]-."_s})
        EXPECT_EQ(ion(text).toString(), text);
    EXPECT_NE(ion(u"[M+Fe]+."_s), ion(u"[M+Fe]+"_s));
}

TEST(Ionization, ProtonsReadBackAsFarAsChargesReach)
{
    for (const int charge : {1, 2, 9999, 10000, -1, -2, -10000})
        EXPECT_EQ(ion(Ionization::protons(charge).toString()), Ionization::protons(charge));
    EXPECT_FALSE(Ionization::read(Ionization::protons(10001).toString()).hasValue());
}

TEST(Ionization, RefusesOtherText)
{
    const std::vector<RefusedText> texts = {
        {u""_s, 0, u"\"[\""_s},
        {u"2"_s, 0, u"\"[\""_s},
        {u"+"_s, 1, u"a number"_s},
        {u"+0"_s, 1, u"from 1"_s},
        {u"+2 "_s, 2, u"the end"_s},
        {u"+10001"_s, 1, u"from 1"_s},
        {u"[H]+"_s, 1, u"\"M\""_s},
        {u"[0M]+"_s, 1, u"from 1"_s},
        {u"[M+H"_s, 4, u"\"]\""_s},
        {u"[M+H]"_s, 5, u"charges"_s},
        {u"[M+H]+2"_s, 6, u"the end"_s},
        {u"[M+]+"_s, 3, u"an element"_s},
        {u"[M+xyz]+"_s, 3, u"an element"_s},
        {u"[M+Hx]+"_s, 4, u"an element"_s},
        {u"[M+Og]+"_s, 3, u"masses"_s},
        {u"[M H]+"_s, 2, u"\"]\""_s},
        {u"[M+99999999999H]+"_s, 3, u"too large"_s},
        {u"[M+2H2147483647]+"_s, 4, u"more than"_s},
    };
    expectRefused(&Ionization::read, texts);
}

RC_GTEST_PROP(Ionization, TheNeutralMassComesBack, (quint8 charges, bool isNegative))
{
    const double mass = *rc::gen::inRange(100, 1000000) / 7.0;
    const int charge = (charges % 50) + 1;
    const Ionization protons = Ionization::protons(isNegative ? -charge : charge);
    RC_ASSERT(std::abs(protons.neutralMass(protons.mz(mass)) - mass) < 1e-9);
}

} // namespace

} // namespace ions
