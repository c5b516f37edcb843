#include "sequences/OligoScanner.h"

#include "DrawnTexts.h"
#include "TestSeed.h"

#include <QRegularExpression>

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <random>
#include <utility>

using namespace Qt::StringLiterals;
using namespace drawnTexts;

namespace {

using chem::OligoAlphabets;
using chem::OligoScanner;
using chem::OligoUnit;

const OligoAlphabets usualAlphabets = {u"\\[{"_s, u"+defmr"_s, u"ACGQTU"_s, u"*."_s, u"\\]}"_s};

// Single decisions.

TEST(OligoScanner, MarkThatIsABaseTooIsReadAsTheExpressionReadsIt)
{
    const OligoScanner scanner({u"A"_s, u"r"_s, u"A"_s, u"*"_s, u"A"_s});
    EXPECT_EQ(scanner.split(u"A")->body, u"A"_s); // a body is needed
    EXPECT_EQ(scanner.split(u"AA")->fivePrimeMark, u"A"_s);
    EXPECT_EQ(scanner.split(u"AA")->body, u"A"_s);
    EXPECT_EQ(scanner.split(u"AAA")->body, u"AA"_s); // nucleotides come before a 3' mark
    EXPECT_EQ(scanner.split(u"AAA")->threePrimeMark, u""_s);
}

TEST(OligoScanner, BorderOfAsciiIsNoBorderOfTheGrammar)
{
    const OligoScanner plain({u"{"_s, u"r"_s, u"\x7f\x80"_s, u"*"_s, u"}"_s});
    const OligoScanner ranged({u"{"_s, u"r"_s, u"\x7e-\x81"_s, u"*"_s, u"}"_s});
    for (const OligoScanner* scanner : {&plain, &ranged}) {
        EXPECT_TRUE(scanner->matches(u"\x7f\x80r\x80*r\x7f"));
        EXPECT_EQ(scanner->units(u"\x7f\x80").size(), 2);
        EXPECT_EQ(scanner->units(u"r\x80*\x7f").size(), 2);
        EXPECT_FALSE(scanner->matches(u"\x82"));
        EXPECT_FALSE(scanner->matches(u"r"));
    }
    EXPECT_FALSE(plain.matches(u"\x81"));
    EXPECT_TRUE(ranged.matches(u"\x81\x7e"));
}

TEST(OligoScanner, FinalLineFeedIsNoPartOfTheText)
{
    const OligoScanner scanner(usualAlphabets);
    EXPECT_EQ(scanner.split(u"[AC]\n")->body, u"AC"_s);
    EXPECT_EQ(scanner.split(u"[AC]\n")->threePrimeMark, u"]"_s);
}

TEST(OligoScanner, FinalLineFeedIsAMarkWhereTheAlphabetHasIt)
{
    const OligoScanner scanner({u"<"_s, u"r"_s, u"A"_s, u"*"_s, u"^A"_s});
    EXPECT_EQ(scanner.split(u"A\n")->threePrimeMark, u"\n"_s);
    EXPECT_EQ(scanner.split(u"A\n\n")->threePrimeMark, u"\n"_s);
}

TEST(OligoScanner, NumberTakesAFullStopOnlyWithADigitBehindIt)
{
    const OligoScanner scanner(usualAlphabets);
    const auto units = scanner.units(u"1.5.+.5-7.A");
    ASSERT_EQ(units.size(), 4);
    EXPECT_EQ(units[0].number, u"1.5"_s);
    EXPECT_EQ(units[0].phosphates, u"."_s);
    EXPECT_EQ(units[1].ribose, u"+"_s);
    EXPECT_EQ(units[1].number, u".5"_s);
    EXPECT_EQ(units[2].number, u"-7"_s);
    EXPECT_EQ(units[2].phosphates, u"."_s);
    EXPECT_EQ(units[3].base, u"A"_s);
}

TEST(OligoScanner, WhatBelongsToNoUnitIsSkipped)
{
    const OligoScanner scanner(usualAlphabets);
    const auto units = scanner.units(u"rr😀A!*+C-");
    ASSERT_EQ(units.size(), 2);
    EXPECT_EQ(units[0].text, u"A"_s);
    EXPECT_EQ(units[1].text, u"+C"_s);
}

// The expressions themselves as a second implementation. They share no algorithm with the scanner:
// the engine of regular expressions backtracks.

struct ByExpressions
{
    explicit ByExpressions(const OligoAlphabets& alphabets)
        : full(chem::oligoFullExpression(alphabets))
        , unit(chem::oligoUnitExpression(alphabets))
    {
    }

    QRegularExpression full;
    QRegularExpression unit;
};

QStringList partsOf(const OligoUnit& unit)
{
    QStringList parts;
    for (const QStringView part : {unit.text, unit.ribose, unit.base, unit.number, unit.phosphates})
        parts.append(part.toString());
    return parts;
}

/// How often texts of each outcome were compared.
struct Tally
{
    int compared = 0;
    int accepted = 0;
    int marked = 0;
    int bodiesWithGaps = 0;
};

/// Compares everything that the scanner tells about `text` with what the expressions tell.
void compare(const OligoScanner& scanner, const ByExpressions& expressions, const QString& text,
             Tally* tally)
{
    ++tally->compared;
    const QRegularExpressionMatch match =
        expressions.full.isValid() ? expressions.full.match(text) : QRegularExpressionMatch();
    ASSERT_EQ(scanner.matches(text), match.hasMatch());
    const auto parts = scanner.split(text);
    ASSERT_EQ(parts.has_value(), match.hasMatch());
    if (!parts)
        return;
    ++tally->accepted;
    ASSERT_EQ(parts->fivePrimeMark, match.captured(1));
    ASSERT_EQ(parts->body, match.captured(2));
    ASSERT_EQ(parts->threePrimeMark, match.captured(6));
    tally->marked += !parts->fivePrimeMark.isEmpty() || !parts->threePrimeMark.isEmpty();

    const QString body = match.captured(2);
    QRegularExpressionMatchIterator expected;
    if (expressions.unit.isValid()) // keys can break this one alone
        expected = expressions.unit.globalMatch(body);
    qsizetype covered = 0;
    for (const OligoUnit& unit : scanner.units(body)) {
        ASSERT_TRUE(expected.hasNext());
        const QRegularExpressionMatch captures = expected.next();
        ASSERT_EQ(partsOf(unit),
                  QStringList({captures.captured(0), captures.captured(1), captures.captured(3),
                               captures.captured(4), captures.captured(5)}));
        covered += unit.text.size();
    }
    ASSERT_FALSE(expected.hasNext());
    tally->bodiesWithGaps += covered < body.size();
}

std::string describe(const OligoAlphabets& alphabets, const QString& text)
{
    QString shown = chem::oligoFullExpression(alphabets) + u" with "_s;
    for (const QChar character : text)
        shown += u"\\u"_s + QString::number(character.unicode(), 16);
    return shown.toStdString();
}

/// Few different characters, so that the alphabets overlap.
const QStringList plainPieces = u"A,C,a,+,.,1,7,é,\\[,\\],😀,%2, ,$,|"_s.split(u',');
const QStringList specialPieces =
    u"- ^ a-c !-~ \\x00-z \\d \\S \\W \\x{41} \\p{L} \\n z-a à-ÿ 😀-😎 \\\\ +--"_s.split(u' ');
const QStringList breakingPieces = u"\\ [ ] \\Q \\E \\c [:alpha:] \\\\] (?: )"_s.split(u' ') +
                                   QStringList({QChar(0xd83d), QChar(0xde00)});

QString randomAlphabet(bool isSpecial, bool isBreaking, std::mt19937& random)
{
    QString alphabet;
    for (qsizetype count = 1 + draw(3, random); count > 0; --count) {
        if (isBreaking && draw(8, random) == 0)
            alphabet += anyOf(breakingPieces, random);
        else if (isSpecial && draw(3, random) == 0)
            alphabet += anyOf(specialPieces, random);
        else
            alphabet += anyOf(plainPieces, random);
    }
    return alphabet;
}

OligoAlphabets randomAlphabets(std::mt19937& random)
{
    const bool isSpecial = draw(2, random) == 0;
    const bool isBreaking = draw(4, random) == 0;
    std::array<QString, 5> texts;
    std::generate(texts.begin(), texts.end(),
                  [&] { return randomAlphabet(isSpecial, isBreaking, random); });
    if (draw(4, random) == 0)
        return usualAlphabets;
    return {texts[0], texts[1], texts[2], texts[3], texts[4]};
}

/// A text of characters that the alphabets talk about, and now and then of others.
QString randomText(const OligoAlphabets& alphabets, std::mt19937& random)
{
    const QString usual = alphabets.fivePrimeMarks + alphabets.riboses + alphabets.nucleobases +
                          alphabets.nucleobases + alphabets.phosphates + alphabets.threePrimeMarks +
                          u"12.+-"_s;
    static const QStringList others =
        u"\n Z b , 😁 ä 0"_s.split(u' ') + QStringList({QChar(0xd83d), QChar(0xde00), QChar(u'\0')});
    QString text;
    for (qsizetype length = draw(draw(10, random) == 0 ? 60 : 12, random); length > 0; --length)
        text += draw(12, random) == 0 ? anyOf(others, random) : QString(anyOf(usual, random));
    if (draw(8, random) == 0)
        text += u'\n';
    return text;
}

TEST(OligoScanner, TellsWhatTheExpressionsTellForRandomAlphabets)
{
    std::mt19937 random(testSeed(20261121));
    constexpr int alphabetCount = 6000;
    constexpr int textsEach = 50;
    Tally tally;
    for (int i = 0; i < alphabetCount; ++i) {
        const OligoAlphabets alphabets = randomAlphabets(random);
        const OligoScanner scanner(alphabets);
        const ByExpressions expressions(alphabets);
        for (int j = 0; j < textsEach; ++j) {
            const QString text = randomText(alphabets, random);
            compare(scanner, expressions, text, &tally);
            ASSERT_FALSE(HasFatalFailure()) << describe(alphabets, text);
        }
    }
    EXPECT_EQ(tally.compared, 300000);
    EXPECT_GT(tally.accepted, 15000);
    EXPECT_GT(tally.compared - tally.accepted, 15000);
    EXPECT_GT(tally.marked, 5000);
    EXPECT_GT(tally.bodiesWithGaps, 5);
}

TEST(OligoScanner, TellsWhatTheExpressionsTellForAllTextsOfSixCharacters)
{
    const OligoScanner scanner(usualAlphabets);
    const ByExpressions expressions(usualAlphabets);
    Tally tally;
    const int texts = forAllTexts(u"[]rA+1.*"_s, 6, [&](const QString& text) {
        compare(scanner, expressions, text, &tally);
    });
    EXPECT_EQ(texts, 1 + 8 + 64 + 512 + 4096 + 32768 + 262144);
    EXPECT_EQ(tally.compared, texts);
}

TEST(OligoScanner, TellsWhatTheExpressionsTellWhereEveryCharacterIsEverything)
{
    // All alphabets are one: nothing but the order of preference decides.
    const OligoAlphabets alphabets = {u"A1+."_s, u"A1+."_s, u"A1+."_s, u"A1+."_s, u"A1+.\n"_s};
    const OligoScanner scanner(alphabets);
    const ByExpressions expressions(alphabets);
    Tally tally;
    const int texts = forAllTexts(
        u"A1+.\n"_s, 6, [&](const QString& text) { compare(scanner, expressions, text, &tally); });
    EXPECT_EQ(texts, 1 + 5 + 25 + 125 + 625 + 3125 + 15625);
    EXPECT_GT(tally.accepted, 3000);
}

} // namespace
