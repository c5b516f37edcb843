#include "PeptidoformLaws.h"
#include "ProForma.h"
#include "RandomPeptidoforms.h"
#include "RandomTexts.h"
#include "TestPrinters.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <limits>
#include <random>

using namespace Qt::StringLiterals;

namespace ions {

namespace {

QString randomPeptidoform()
{
    return RandomPeptidoform(*rc::gen::inRange<unsigned>(0, std::numeric_limits<unsigned>::max()))
        .text();
}

RC_GTEST_PROP(PeptidoformText, TextsOfTheGrammarReadBackToEqualValues, ())
{
    const QString text = randomPeptidoform();
    const Parsed<Peptidoform> value = Peptidoform::read(text);
    if (!value)
        RC_FAIL(text.toStdString() + ": " + value.error().message.toStdString());
    const QString canonical = value->toString();
    const Parsed<Peptidoform> again = Peptidoform::read(canonical);
    if (!again)
        RC_FAIL(canonical.toStdString() + ": " + again.error().message.toStdString());
    RC_ASSERT(*again == *value);
    RC_ASSERT(again->toString() == canonical);
}

RC_GTEST_PROP(PeptidoformText, SpoiledTextsAreReadOrRefusedInsideTheText, ())
{
    QString text = randomPeptidoform();
    const qsizetype at = *rc::gen::inRange<qsizetype>(0, text.size());
    const QString marks = u"[](){}<>|#^?-+/@:.,zX1 "_s + QChar(0xd800);
    text[at] = marks[*rc::gen::inRange<qsizetype>(0, marks.size())];
    const Parsed<Peptidoform> value = Peptidoform::read(text);
    if (!value)
        RC_ASSERT(value.error().position >= 0 && value.error().position <= text.size());
    else
        RC_ASSERT(Peptidoform::read(value->toString()).value() == *value);
}

/// What follows a refused character cannot change where the text is refused.
TEST(PeptidoformText, RefusesAtTheFirstCharacterThatCannotStandThere)
{
    int refused = 0;
    for (const QString& text : allTexts(u"A[]?-(/1#"_s, 5)) {
        const Parsed<Peptidoform> value = Peptidoform::read(text);
        if (value || value.error().position >= text.size())
            continue;
        ++refused;
        const qsizetype position = value.error().position;
        const Parsed<Peptidoform> shorter = Peptidoform::read(text.first(position + 1));
        ASSERT_FALSE(shorter.hasValue()) << text.toStdString();
        ASSERT_EQ(shorter.error().position, position) << text.toStdString();
        const Parsed<Peptidoform> before = Peptidoform::read(text.first(position));
        ASSERT_TRUE(before || before.error().position == position) << text.toStdString();
    }
    EXPECT_GT(refused, 40000);
}

/// A hundred thousand characters of each kind, alone and behind a start: deep nests, long lists,
/// long numbers.
TEST(PeptidoformText, AnswersHostileTextsWithoutDelay)
{
    constexpr qsizetype length = 100000;
    for (const QString& start :
         {u""_s, u"A["_s, u"A[Glycan:"_s, u"A[Formula:"_s, u"(>"_s, u"{"_s}) {
        for (const QString& part : {u"["_s, u"("_s, u"{"_s, u"<"_s, u"9"_s, u"A"_s, u"Hex"_s,
                                    u"HexN"_s, u"A["_s, u"(?A"_s, u"[C"_s, u"[A]"_s, u"|"_s,
                                    u"[A]?"_s, u"A//"_s, u"A+"_s, u"\U0001f9ea"_s, u" "_s}) {
            const QString text = start + part.repeated(length / part.size());
            const Parsed<Peptidoform> value = Peptidoform::read(text);
            EXPECT_TRUE(value || value.error().position <= text.size());
        }
    }
}

/// Text whose parts would multiply each other if each were laid out.
TEST(PeptidoformText, WeighsHostileTextsWithoutDelay)
{
    const auto isRefused = [](const QString& text) {
        const Peptidoform value = Peptidoform::read(text).value();
        return !value.weigh(0, naturalResidues(), standardModifications()).hasValue();
    };
    EXPECT_TRUE(isRefused(u"<[+1]@A>"_s.repeated(900) + QString(90000, u'A')));
    EXPECT_TRUE(isRefused(u"<[+1]@C>"_s.repeated(1001) + u"A"_s));
    EXPECT_FALSE(isRefused(u"<[+1]@C>"_s.repeated(1000) + u"A+"_s.repeated(1000) + u"A"_s));
    const QString places = u"C,"_s.repeated(50000) + u"A"_s;
    EXPECT_FALSE(isRefused(u"<[+1]@"_s + places + u">"_s + QString(50000, u'A')));
    EXPECT_FALSE(isRefused(u"[+1|Position:"_s + places + u"]?"_s + QString(50000, u'A')));
}

TEST(PeptidoformText, NumbersBeyondAnyAreRefused)
{
    const QString digits = QString(400, u'9');
    for (const QString& text : {u"A[+%1]"_s, u"A/%1"_s, u"A[x|Limit:%1]"_s, u"[x]^%1?A"_s,
                                u"A[Formula:C%1]"_s, u"A[Glycan:Hex%1]"_s, u"<%1C>A"_s}) {
        const Parsed<Peptidoform> value = Peptidoform::read(text.arg(digits));
        ASSERT_FALSE(value.hasValue()) << text.toStdString();
        EXPECT_TRUE(value.error().message.contains(u"too large"_s)) << text.toStdString();
    }
    EXPECT_TRUE(Peptidoform::read(u"A[UNIMOD:%1]"_s.arg(digits)).hasValue());
}

/// The canonical text of a glycan, or the refusal.
QString glycan(const QString& text)
{
    const QString whole = u"A[Glycan:"_s + text + u"]"_s;
    const Parsed<Peptidoform> value = Peptidoform::read(whole);
    EXPECT_TRUE(value.hasValue()) << text.toStdString();
    return value ? value->toString() : QString();
}

/// Every text of three names, joined and apart.
TEST(PeptidoformText, GlycansReadAllWaysAtOnce)
{
    const QStringList names =
        u"sulfate phosphate Fuc NeuAc NeuGc Neu dHex en,aHex aHex HexNAcS HexNAc HexNS HexS HexP "
        "HexN Hex Sug Tri Tet Pen Hep Oct Non Dec"_s.split(u' ');
    int count = 0;
    for (const QString& first : names) {
        for (const QString& second : names) {
            for (const QString& third : names) {
                const QString joined = first + second + third;
                const QString spaced = first + u' ' + second + u' ' + third;
                ASSERT_EQ(glycan(joined), glycan(spaced)) << joined.toStdString();
                ++count;
            }
        }
    }
    EXPECT_EQ(count, 24 * 24 * 24);
}

} // namespace

} // namespace ions
