#include "Composition.h"
#include "RefusedTexts.h"
#include "TestPrinters.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <limits>
#include <ostream>
#include <vector>

using namespace Qt::StringLiterals;

namespace ions {

namespace {

struct FormulaCase
{
    QString text;
    QString canonical;
};

void PrintTo(const FormulaCase& formula, std::ostream* stream)
{
    *stream << formula.text.toStdString();
}

class CompositionTextForms : public testing::TestWithParam<FormulaCase>
{
};

TEST_P(CompositionTextForms, ReadAndWriteBackInHillOrder)
{
    const Parsed<Composition> read = Composition::read(GetParam().text);
    ASSERT_TRUE(read.hasValue()) << read.error().message.toStdString();
    EXPECT_EQ(read->toString(), GetParam().canonical);
    EXPECT_EQ(Composition::read(read->toString()).value(), *read);
}

INSTANTIATE_TEST_SUITE_P(
    Elements, CompositionTextForms,
    testing::Values(FormulaCase{u"C6H12O6"_s, u"C6H12O6"_s}, FormulaCase{u"H2O"_s, u"H2O"_s},
                    FormulaCase{u"NaCl"_s, u"ClNa"_s}, FormulaCase{u"CO"_s, u"CO"_s},
                    FormulaCase{u"Co"_s, u"Co"_s}, FormulaCase{u"CoCO3"_s, u"CCoO3"_s},
                    FormulaCase{u"CHN"_s, u"CHN"_s}, FormulaCase{u"CNH"_s, u"CHN"_s},
                    FormulaCase{u"HOH"_s, u"H2O"_s}, FormulaCase{u"BrH"_s, u"BrH"_s},
                    FormulaCase{u"Og2"_s, u"Og2"_s}, FormulaCase{u"C06"_s, u"C6"_s}));

INSTANTIATE_TEST_SUITE_P(Groups, CompositionTextForms,
                         testing::Values(FormulaCase{u"C(CH3)4"_s, u"C5H12"_s},
                                         FormulaCase{u"(CH2)3"_s, u"C3H6"_s},
                                         FormulaCase{u"Fe4(Fe(CN)6)3"_s, u"C18Fe7N18"_s},
                                         FormulaCase{u"(H2O)-1"_s, u"H-2O-1"_s},
                                         FormulaCase{u"((CH3)2)-2"_s, u"C-4H-12"_s},
                                         FormulaCase{u"(((C)))"_s, u"C"_s}));

INSTANTIATE_TEST_SUITE_P(
    Isotopes, CompositionTextForms,
    testing::Values(FormulaCase{u"[13C6]H12O6"_s, u"[13C6]H12O6"_s},
                    FormulaCase{u"[13C]6H12O6"_s, u"[13C6]H12O6"_s},
                    FormulaCase{u"[13C2]C-2H2N"_s, u"C-2[13C2]H2N"_s},
                    FormulaCase{u"[13C2][12C-2]H2N"_s, u"[12C-2][13C2]H2N"_s},
                    FormulaCase{u"[13C]-2"_s, u"[13C-2]"_s}, FormulaCase{u"CD3OD"_s, u"C[2H4]O"_s},
                    FormulaCase{u"T2O"_s, u"[3H2]O"_s}, FormulaCase{u"Dy"_s, u"Dy"_s},
                    FormulaCase{u"Ts"_s, u"Ts"_s}, FormulaCase{u"[18O]H2"_s, u"H2[18O]"_s}));

INSTANTIATE_TEST_SUITE_P(Parts, CompositionTextForms,
                         testing::Values(FormulaCase{u"CuSO4.5H2O"_s, u"CuH10O9S"_s},
                                         FormulaCase{u"CuSO4\u00b75H2O"_s, u"CuH10O9S"_s},
                                         FormulaCase{u"C6H12O6.H2O"_s, u"C6H14O7"_s},
                                         FormulaCase{u"Na2CO3.10H2O"_s, u"CH20Na2O13"_s},
                                         FormulaCase{u"MgCl2.2(CH3OH).3H2O"_s, u"C2H14Cl2MgO5"_s}));

INSTANTIATE_TEST_SUITE_P(Losses, CompositionTextForms,
                         testing::Values(FormulaCase{u"H-2"_s, u"H-2"_s},
                                         FormulaCase{u"C2H6OSi-1"_s, u"C2H6OSi-1"_s},
                                         FormulaCase{u"C2H4C-2"_s, u"H4"_s}));

TEST(CompositionText, AtomsThatCancelEachOtherLeaveNothing)
{
    EXPECT_EQ(formula(u"HH-1"_s), Composition());
    EXPECT_EQ(Composition().toString(), u""_s);
}

TEST(CompositionText, RefusesWhatIsNoFormulaAtTheFirstCharacterThatCannotStandThere)
{
    const std::vector<RefusedText> texts = {
        {u""_s, 0, u"an element"_s},
        {u"c6"_s, 0, u"an element"_s},
        {u"C6h12"_s, 2, u"an element"_s},
        {u"CH3-CH2-OH"_s, 3, u"an element"_s},
        {u"C6H12O6-H2O"_s, 7, u"an element"_s},
        {u"2H2O"_s, 0, u"an element"_s},
        {u"HPO3*2"_s, 4, u"an element"_s},
        {u"NaCl+H2O"_s, 4, u"an element"_s},
        {u"Fe3+"_s, 3, u"an element"_s},
        {u"PO4(3-)"_s, 4, u"an element"_s},
        {u"C H"_s, 1, u"an element"_s},
        {u"H0"_s, 1, u"other than 0"_s},
        {u"(CH2"_s, 4, u"\")\""_s},
        {u"CH2)"_s, 3, u"an element"_s},
        {u"()"_s, 1, u"an element"_s},
        {u"C."_s, 2, u"an element"_s},
        {u".H2O"_s, 0, u"an element"_s},
        {u"(C.H)"_s, 2, u"an element"_s},
        {u"C.0H2O"_s, 2, u"other than 0"_s},
        {u"[C]"_s, 1, u"mass number"_s},
        {u"CH-"_s, 3, u"a number"_s},
        {u"[13C"_s, 4, u"\"]\""_s},
        {u"[13C6]2"_s, 6, u"an element"_s},
        {u"[5C]"_s, 1, u"mass number"_s},
        {u"[19C]"_s, 1, u"mass number"_s},
        {u"[13X]"_s, 3, u"symbol"_s},
        {u"[13]"_s, 3, u"symbol"_s},
        {u"E"_s, 0, u"an element"_s},
        {u"Xx"_s, 0, u"an element"_s},
        {u"C\u0666"_s, 1, u"an element"_s},
        {u"H1.5."_s, 4, u"an element"_s},
    };
    expectRefused(&Composition::read, texts);
}

TEST(CompositionText, RefusesCountsThatDoNotFit)
{
    EXPECT_EQ(formula(u"H2147483647"_s).count({1, 0}), 2147483647);
    EXPECT_EQ(formula(u"H-2147483647"_s).count({1, 0}), -2147483647);
    const std::vector<RefusedText> texts = {
        {u"H2147483648"_s, 1, u"too large"_s},
        {u"H-2147483648"_s, 2, u"too large"_s},
        {u"H99999999999999999999999"_s, 1, u"too large"_s},
        {u"H2147483647H"_s, 12, u"more than 2147483647"_s},
        {u"(H2)1073741824"_s, 2, u"more than 2147483647"_s},
        {u"(((H65536)65536)65536)65536"_s, 4, u"more than 2147483647"_s},
        {u"C.2147483647H2"_s, 13, u"more than 2147483647"_s},
        {u"H2147483647CHH-1H-1H5"_s, 20, u"more than 2147483647"_s},     // where it stays too large
        {u"(C2147483647)2C-2147483647"_s, 2, u"more than 2147483647"_s}, // a term by itself
        {u"[99999999999C]"_s, 1, u"too large"_s},
    };
    expectRefused(&Composition::read, texts);
}

TEST(CompositionText, OnlyTheTotalOfManyTermsHasToFit)
{
    const Composition most({6, 0}, 2147483647);
    for (const QString& text :
         {u"C2147483647CC-1"_s, u"CC2147483647C-1"_s, u"C-1C2147483647C"_s,
          u"C2147483647C2147483647C-2147483647"_s, u"C-2147483647C-1C2147483647C2147483647C"_s})
        EXPECT_EQ(formula(text), most) << text.toStdString();
    EXPECT_TRUE(formula(u"(C2147483647C2)C-2147483647C-2"_s).isEmpty());
}

TEST(CompositionText, GroupsThatNestAMillionDeepAreRead)
{
    const qsizetype depth = 1000000;
    const QString text = QString(depth, u'(') + u'C' + QString(depth, u')');
    EXPECT_EQ(Composition::read(text).value(), formula(u"C"_s));
    EXPECT_EQ(Composition::read(text.first(depth)).error().position, depth);
}

/// A second reader that shares no code with the first: it expands the text from the inside out,
/// group by group, for formulas of C, H and groups alone.
QMap<QString, qint64> expanded(const QString& text)
{
    QMap<QString, qint64> counts;
    std::vector<QMap<QString, qint64>> open = {{}};
    for (qsizetype at = 0; at < text.size();) {
        const QChar c = text[at++];
        QMap<QString, qint64> unit;
        if (c == u'(') {
            open.emplace_back();
            continue;
        }
        if (c == u')') {
            unit = open.back();
            open.pop_back();
        } else {
            unit[QString(c)] = 1;
        }
        QString digits;
        while (at < text.size() && text[at].isDigit())
            digits += text[at++];
        const qint64 times = digits.isEmpty() ? 1 : digits.toLongLong();
        for (auto entry = unit.cbegin(); entry != unit.cend(); ++entry)
            open.back()[entry.key()] += times * entry.value();
    }
    return open.back();
}

/// Every text of up to seven of these characters is read as a slow second reader has it, or
/// refused where brackets or counts have nothing to stand on.
TEST(CompositionText, SmallWorldAgreesWithAPlainSecondReader)
{
    const QString alphabet = u"CH()2"_s;
    int readTexts = 0;
    std::vector<QString> texts = {QString()};
    for (std::size_t next = 0; next < texts.size(); ++next) {
        const QString text = texts[next];
        if (text.size() < 7) {
            for (const QChar c : alphabet)
                texts.push_back(text + c);
        }
        const Parsed<Composition> read = Composition::read(text);
        if (!read) {
            ASSERT_LE(read.error().position, text.size());
            continue;
        }
        ++readTexts;
        const auto counts = expanded(text);
        ASSERT_EQ(read->count({6, 0}), counts.value(u"C"_s)) << text.toStdString();
        ASSERT_EQ(read->count({1, 0}), counts.value(u"H"_s)) << text.toStdString();
    }
    EXPECT_GT(readTexts, 4000);
}

RC_GTEST_PROP(CompositionText, EveryCompositionReadsBackFromItsText, ())
{
    Composition composition;
    const auto size = *rc::gen::inRange(1, 12);
    for (int i = 0; i < size; ++i) {
        const auto number = *rc::gen::inRange<quint8>(1, 119);
        const auto neutrons = *rc::gen::inRange<int>(0, number + 1);
        const bool isStated = *rc::gen::arbitrary<bool>();
        const Atom atom{number, isStated ? quint16(number + neutrons) : quint16(0)};
        RC_PRE(composition.add(atom, *rc::gen::inRange(-5000, 5000)));
    }
    RC_PRE(!composition.isEmpty());
    RC_ASSERT(Composition::read(composition.toString()).value() == composition);
}

} // namespace

} // namespace ions
