#include "DrawnTexts.h"
#include "RandomMolecules.h"
#include "TestFormulas.h"
#include "TestPrinters.h"
#include "TestSeed.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>

using namespace Qt::StringLiterals;
using randomMolecules::anyFormula;

namespace {

using chem::ChemicalFormula;
using Counts = QMap<QString, double>;

ChemicalFormula read(const QString& text)
{
    return chem::ChemicalFactory::parseChemicalFormula(text);
}

// Reading.

TEST(ChemicalFormulaReader, TextWithoutCapitalsIsEmpty)
{
    for (const QString& text : {u""_s, u"   "_s, u"cl2"_s, u"123"_s, u"()-+."_s}) {
        const ChemicalFormula formula = read(text);
        EXPECT_TRUE(formula.isEmpty()) << text.toStdString();
        EXPECT_TRUE(formula.isValid());
        for (const QString& written :
             {formula.toString(), formula.toIsoFormulaString(), formula.toThermoFormulaString(),
              formula.positiveFormulaString(), formula.negativeFormulaString()})
            EXPECT_EQ(written, QString());
    }
}

TEST(ChemicalFormulaReader, ReadsAsStated)
{
    const double inf = std::numeric_limits<double>::infinity();
    const QList<std::pair<QString, Counts>> cases = {
        {u"C6H12O6"_s, {{u"C"_s, 6}, {u"H"_s, 12}, {u"O"_s, 6}}},
        {u"2H2O"_s, {{u"H"_s, 2}, {u"O"_s, 1}}},
        {u"abc1H"_s, {{u"H"_s, 1}}},
        {u"H2CH"_s, {{u"C"_s, 1}, {u"H"_s, 3}}},
        {u"C 2 H 6"_s, {{u"C"_s, 2}, {u"H"_s, 6}}},
        {u"(C_2)[H,6]"_s, {{u"C"_s, 2}, {u"H"_s, 6}}},
        {u"H(-1)"_s, {{u"H"_s, -1}}},
        {u"H-1"_s, {{u"H"_s, -1}}},
        {u"H - 1"_s, {{u"H"_s, -1}}},
        {u"H(-1"_s, {{u"H"_s, -1}}},
        {u"H+2"_s, {{u"H"_s, 2}}},
        {u"H.5"_s, {{u"H"_s, 0.5}}},
        {u"H-.5"_s, {{u"H"_s, -0.5}}},
        {u"Na+"_s, {{u"Na"_s, 0}}},
        {u"O-"_s, {{u"O"_s, 0}}},
        {u"H2O-H"_s, {{u"H"_s, 3}, {u"O"_s, 0}}},
        {u"H2.5.6"_s, {{u"H"_s, 0}}},
        {u"H2-3"_s, {{u"H"_s, 0}}},
        {u"C2h3"_s, {{u"C"_s, 0}}},
        {u"Hex2Cl"_s, {{u"Cl"_s, 1}, {u"Hex"_s, 2}}},
        {u"C1E3"_s, {{u"C"_s, 1}, {u"E"_s, 3}}},
        {u"C1e3"_s, {{u"C"_s, 1000}}},
        {u"C0"_s, {{u"C"_s, 0}}},
        {u"C0001"_s, {{u"C"_s, 1}}},
        {u"C3000000000"_s, {{u"C"_s, 3e9}}},
        {u"C12345678901234567890"_s, {{u"C"_s, 12345678901234567890.0}}},
        {u"C1e-3"_s, {{u"C"_s, 0.001}}},
        {u"H-inf"_s, {{u"H"_s, -inf}}},
        {u"Äx2"_s, {{u"Äx"_s, 2}}},
        {u"C\u00b2"_s,
         {{u"C"_s, 0}}}, // superscript two is a number to Unicode, but not to a reader
    };
    for (const auto& [text, counts] : cases)
        EXPECT_EQ(read(text).elementCountMap(), counts) << text.toStdString();
}

TEST(ChemicalFormulaReader, HugeExponentIsWhatTheConverterMakesOfIt)
{
    EXPECT_EQ(read(u"C1e999"_s).elementCountMap().value(u"C"_s), u"1e999"_s.toDouble());
    EXPECT_TRUE(read(u"C1e999"_s).elementCountMap().contains(u"C"_s));
}

TEST(ChemicalFormulaReader, OddCharactersVanish)
{
    const QString withNul = u"C"_s + QChar(u'\0') + u"2"_s;
    EXPECT_EQ(read(withNul).elementCountMap(), Counts({{u"C"_s, 2}}));
    const QString withSurrogate = u"C"_s + QChar(0xd835) + u"3"_s;
    EXPECT_EQ(read(withSurrogate).elementCountMap(), Counts({{u"C"_s, 3}}));
    const QString withPair = u"C"_s + QString::fromUcs4(U"\U0001D400") + u"4"_s; // a bold capital A
    EXPECT_EQ(read(withPair).elementCountMap(), Counts({{u"C"_s, 4}}));
}

TEST(ChemicalFormulaReader, MegabytesAreReadInOneGo)
{
    const QString text =
        u"C2 H(3) "_s.repeated(200000) + QString(1000000, u' ') + u"x9"_s.repeated(1000);
    EXPECT_EQ(read(text).elementCountMap().value(u"C"_s), 400000.0);
}

/// The reader written down again as plainly as it goes: one character at a time.
Counts readSlowly(const QString& text)
{
    Counts counts;
    QString symbol;
    QString number;
    bool isOpen = false;
    const auto close = [&] {
        if (isOpen)
            counts[symbol] += number.isEmpty() ? 1.0 : number.toDouble();
        symbol.clear();
        number.clear();
    };
    for (const QChar c : text) {
        if (!c.isLetterOrNumber() && !u"-+."_s.contains(c))
            continue;
        if (c.isUpper()) {
            close();
            isOpen = true;
            symbol = c;
        } else if (isOpen && number.isEmpty() && c.isLetter()) {
            symbol += c;
        } else if (isOpen) {
            number += c;
        }
    }
    close();
    return counts;
}

TEST(ChemicalFormulaReader, AgreesWithASlowReaderOnAllShortTexts)
{
    const int compared = drawnTexts::forAllTexts(u"CHl2-. e("_s, 5, [](const QString& text) {
        EXPECT_EQ(read(text).elementCountMap(), readSlowly(text));
    });
    EXPECT_EQ(compared, 1 + 9 + 81 + 729 + 6561 + 59049);
}

TEST(ChemicalFormulaReader, AgreesWithASlowReaderOnRandomUnicode)
{
    std::mt19937 random(testSeed(11));
    for (int i = 0; i < 5000; ++i) {
        QString text;
        for (int j = 0; j < 12; ++j)
            text += QChar(static_cast<char16_t>(random() % (j % 2 ? 128 : 0x10000)));
        ASSERT_EQ(read(text).elementCountMap(), readSlowly(text)) << text.toStdString();
    }
}

// Writing.

TEST(ChemicalFormulaReader, DisplayFormIsInHillOrder)
{
    const QList<std::pair<ChemicalFormula, QString>> cases = {
        {formulaWith({{u"C"_s, 1}, {u"H"_s, 4}, {u"N"_s, 1}}), u"C1H4N"_s},
        {formulaWith({{u"C"_s, 1}, {u"H"_s, 1}}), u"C1H1"_s},
        {formulaWith({{u"H"_s, 2}, {u"O"_s, 1}}), u"H2O"_s},
        {formulaWith({{u"H"_s, 1}, {u"O"_s, 1}}), u"HO"_s},
        {formulaWith({{u"C"_s, -2}, {u"H"_s, 1}, {u"Br"_s, 1}}), u"C(-2)BrH"_s},
        {formulaWith({{u"C"_s, -1}, {u"H"_s, -1}, {u"B"_s, 2}}), u"C(-1)B2H(-1)"_s},
        {formulaWith({{u"C"_s, 2}, {u"H"_s, -3}, {u"O"_s, 1}}), u"C2H(-3)O"_s},
        {formulaWith({{u"C"_s, 2}, {u"H"_s, 0}, {u"O"_s, 1}}), u"C2O"_s},
        {formulaWith({{u"C"_s, 0}, {u"H"_s, 4}}), u"H4"_s},
        {formulaWith({{u"C"_s, 0}, {u"H"_s, 1}, {u"Cl"_s, 1}}), u"ClH"_s},
        {formulaWith({{u"N"_s, 0.5}}), u"N0.5"_s},
        {formulaWith({{u"N"_s, -0.5}}), u"N(-0.5)"_s},
        {formulaWith({{u"N"_s, -1}}), u"N(-1)"_s},
        {formulaWith({{u"N"_s, 1e-13}}), u""_s},
        {formulaWith({{u"N"_s, -1e-13}}), u""_s},
        {formulaWith({{u"N"_s, 1 + 1e-13}}), u"N"_s},
        {formulaWith({{u"C"_s, 1e-13}, {u"H"_s, 1e-13}}), u"C1e-13H1e-13"_s},
        {formulaWith({{u"C"_s, 1}, {u"Na"_s, 1}, {u"N"_s, 2}, {u"n"_s, 3}}), u"C1N2Nan3"_s},
        {formulaWith({{u"C"_s, 1000000}, {u"N"_s, 1234567}}), u"C1e+06N1.23457e+06"_s},
        {formulaWith({{u"C"_s, 999999}}), u"C999999"_s},
    };
    for (const auto& [formula, text] : cases)
        EXPECT_EQ(formula.toString(), text);
}

TEST(ChemicalFormulaReader, IsoFormPrintsEveryNumberOfAValidFormula)
{
    EXPECT_EQ(formulaWith({{u"H"_s, 2}, {u"O"_s, 1}}).toIsoFormulaString(), u"H2O1"_s);
    EXPECT_EQ(formulaWith({{u"H"_s, 2}, {u"C"_s, 1}, {u"N"_s, 0}}).toIsoFormulaString(), u"C1H2"_s);
    EXPECT_EQ(formulaWith({{u"C"_s, 1000000}}).toIsoFormulaString(), u"C1e+06"_s);
    EXPECT_EQ(formulaWith({{u"C"_s, 1.5}}).toIsoFormulaString(), QString());
    EXPECT_EQ(formulaWith({{u"C"_s, 1}, {u"H"_s, -1}}).toIsoFormulaString(), QString());
    EXPECT_EQ(formulaWith({{u"C"_s, 3e9}}).toIsoFormulaString(), QString());
}

TEST(ChemicalFormulaReader, ThermoFormPrintsWholeNumbersInFull)
{
    EXPECT_EQ(formulaWith({{u"H"_s, 2}, {u"O"_s, 1}, {u"N"_s, 0}}).toThermoFormulaString(),
              u"H2O1"_s);
    EXPECT_EQ(formulaWith({{u"C"_s, 1234567}}).toThermoFormulaString(), u"C1234567"_s);
    EXPECT_EQ(formulaWith({{u"C"_s, 2147483647}}).toThermoFormulaString(), u"C2147483647"_s);
    EXPECT_EQ(formulaWith({{u"C"_s, 1.5}}).toThermoFormulaString(), QString());
    EXPECT_EQ(formulaWith({{u"C"_s, -1}}).toThermoFormulaString(), QString());
}

TEST(ChemicalFormulaReader, GainsAndLossesArePrintedApart)
{
    const ChemicalFormula change = formulaWith(
        {{u"C"_s, 1}, {u"H"_s, -2}, {u"N"_s, 0.5}, {u"O"_s, 0}, {u"P"_s, -0.25}, {u"S"_s, 2e6}});
    EXPECT_EQ(change.positiveFormulaString(), u"C1N0.5S2e+06"_s);
    EXPECT_EQ(change.negativeFormulaString(), u"H2P0.25"_s);
}

/// The entries that print: all but those at zero.
Counts withoutZeros(Counts counts)
{
    counts.removeIf([](auto entry) { return entry.value() == 0.0; });
    return counts;
}

RC_GTEST_PROP(ChemicalFormulaReaderLaws, DisplayFormReadsBack, ())
{
    const ChemicalFormula formula = anyFormula(-999999, 1000000);
    RC_ASSERT(read(formula.toString()).elementCountMap() ==
              withoutZeros(formula.elementCountMap()));
}

RC_GTEST_PROP(ChemicalFormulaReaderLaws, OtherFormsOfAMoleculeReadBack, ())
{
    const ChemicalFormula formula = anyFormula(0, 1000000);
    const Counts counts = withoutZeros(formula.elementCountMap());
    RC_ASSERT(read(formula.toIsoFormulaString()).elementCountMap() == counts);
    RC_ASSERT(read(formula.toThermoFormulaString()).elementCountMap() == counts);
    RC_ASSERT(read(formula.positiveFormulaString()).elementCountMap() == counts);
    RC_ASSERT(formula.negativeFormulaString().isEmpty());
}

RC_GTEST_PROP(ChemicalFormulaReaderLaws, GainsMinusLossesAreTheWhole, ())
{
    const ChemicalFormula formula = anyFormula(-999999, 1000000);
    const ChemicalFormula gains = read(formula.positiveFormulaString());
    const ChemicalFormula losses = read(formula.negativeFormulaString());
    RC_ASSERT((gains - losses).elementCountMap() == withoutZeros(formula.elementCountMap()));
}

TEST(ChemicalFormulaReader, CarbonAndHydrogenAtTheHeadHaveNoTolerance)
{
    EXPECT_EQ(formulaWith({{u"C"_s, -1e-13}, {u"N"_s, 2}}).toString(), u"C(-1e-13)N2"_s);
    EXPECT_EQ(formulaWith({{u"C"_s, 1}, {u"H"_s, -1e-13}}).toString(), u"C1H(-1e-13)"_s);
    EXPECT_EQ(formulaWith({{u"C"_s, 1 + 1e-13}, {u"H"_s, 1 + 1e-13}}).toString(), u"C1H1"_s);
    EXPECT_EQ(formulaWith({{u"H"_s, 1e-13}, {u"N"_s, 2}}).toString(), u"N2"_s);
}

TEST(ChemicalFormulaReader, FractionsHaveSixSignificantDigitsInEveryForm)
{
    const ChemicalFormula formula = formulaWith({{u"C"_s, 2.0 / 3}, {u"N"_s, -1.0 / 3}});
    EXPECT_EQ(formula.toString(), u"C0.666667N(-0.333333)"_s);
    EXPECT_EQ(formula.positiveFormulaString(), u"C0.666667"_s);
    EXPECT_EQ(formula.negativeFormulaString(), u"N0.333333"_s);
}

TEST(ChemicalFormulaReader, ExponentFormReadsBackAtSixDigits)
{
    const ChemicalFormula formula = formulaWith({{u"C"_s, 1234567}});
    EXPECT_EQ(formula.toIsoFormulaString(), u"C1.23457e+06"_s);
    EXPECT_EQ(read(formula.toIsoFormulaString()).elementCountMap(), Counts({{u"C"_s, 1234570}}));
}

// The bound of the comparison grows with the count, so an infinite one is within it.
TEST(ChemicalFormulaReader, InfiniteCountIsLeftOutOfTheDisplayFormBehindTheHead)
{
    const double infinity = std::numeric_limits<double>::infinity();
    const ChemicalFormula formula = formulaWith({{u"C"_s, infinity}, {u"N"_s, infinity}});
    EXPECT_EQ(formula.toString(), u"Cinf"_s);
    EXPECT_EQ(formula.positiveFormulaString(), u"CinfNinf"_s);
}

} // namespace
