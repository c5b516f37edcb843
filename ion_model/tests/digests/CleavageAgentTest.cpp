#include "DataRows.h"
#include "Digest.h"
#include "RandomTexts.h"
#include "RefusedTexts.h"
#include "TestPrinters.h"
#include "TestSeed.h"

#include <QRegularExpression>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace ions {

namespace {

/// Every letter, and what else may stand in a protein's text.
const QString oddLetters = u"ACDEFGHIKLMNPQRSTVWYBJOUXZ*-. kp\u00e9\n"_s;

std::vector<qsizetype> cutsOf(const CleavageAgent& agent, const QString& text)
{
    std::vector<qsizetype> cuts = {7, 7, 7};
    EXPECT_TRUE(agent.findCuts(text, &cuts));
    return cuts;
}

/// The slow second way: the expression engine asked at each place. It shares nothing with the
/// classes of letters.
std::vector<qsizetype> placesThatMatch(const QRegularExpression& expression, const QString& text)
{
    std::vector<qsizetype> places;
    for (qsizetype place = 1; place < text.size(); ++place) {
        const auto match = expression.match(text, place, QRegularExpression::NormalMatch,
                                            QRegularExpression::AnchorAtOffsetMatchOption);
        if (match.hasMatch())
            places.push_back(place);
    }
    return places;
}

QString productsOf(const CleavageAgent& agent, const QString& text)
{
    QString products = text;
    const std::vector<qsizetype> cuts = cutsOf(agent, text);
    for (auto cut = cuts.rbegin(); cut != cuts.rend(); ++cut)
        products.insert(*cut, u' ');
    return products;
}

QList<QStringList> rulesOf(const QString& fileName, qsizetype column)
{
    QList<QStringList> rules;
    for (const QStringList& row : dataRows(fileName)) {
        if (!row.at(column).isEmpty())
            rules.append({row.at(column - 1), row.at(column)});
    }
    return rules;
}

TEST(Protease, EveryNameAndAccessionOfTheVocabularyIsKnownInAnyCase)
{
    const QList<QStringList> rows = dataRows(u"proteases.tsv"_s);
    EXPECT_EQ(rows.size(), 26);
    ASSERT_EQ(Protease::names().size(), rows.size());
    for (qsizetype i = 0; i < rows.size(); ++i) {
        const QStringList& row = rows[i];
        EXPECT_EQ(Protease::names()[i], row[1]);
        for (const QString& text : {row[0], row[1], row[0].toLower(), row[1].toUpper()}) {
            const Parsed<Protease> protease = Protease::named(text);
            ASSERT_TRUE(protease.hasValue()) << text.toStdString();
            EXPECT_EQ(protease->accession(), row[0]);
            EXPECT_EQ(protease->name(), row[1]);
            EXPECT_EQ(protease->expression(), row[2]);
            EXPECT_TRUE(protease->isCompiled());
        }
    }
}

TEST(Protease, OtherNamesAreRefusedWithTheNearestOnes)
{
    const std::vector<RefusedText> texts = {
        {u"Tripsin"_s, 0, u"such as Trypsin,"_s},
        {u"lysc"_s, 0, u"Lys-C"_s},
        {u""_s, 0, u"a protease"_s},
        {u"Trypsin "_s, 0, u"such as Trypsin,"_s},
        {u"MS:1000000"_s, 0, u"a protease"_s},
        {QString(100000, u'K'), 0, u"such as Trypsin,"_s},
    };
    expectRefused(&Protease::named, texts);
}

TEST(Protease, EachRuleCutsLikeItsExpressionInAllShortTexts)
{
    qsizetype compared = 0;
    for (const QString& letters : {u"KRPA"_s, u"DEAFP"_s, u"HRPEx"_s, u"MNGW"_s, u"BZLT"_s}) {
        const QStringList texts = allTexts(letters, 5);
        for (const QStringList& rule : rulesOf(u"proteases.tsv"_s, 2)) {
            SCOPED_TRACE(rule[0].toStdString());
            const QRegularExpression expression(rule[1]);
            const Protease protease = Protease::named(rule[0]).value();
            for (const QString& text : texts) {
                ASSERT_EQ(cutsOf(protease, text), placesThatMatch(expression, text))
                    << text.toStdString();
                ++compared;
            }
        }
    }
    EXPECT_EQ(compared, 24 * (3 * 1365 + 2 * 3906));
}

TEST(Protease, EachRuleCutsLikeItsExpressionInRandomText)
{
    std::mt19937 random(testSeed(20261122));
    qsizetype cutCount = 0;
    for (const QStringList& rule : rulesOf(u"proteases.tsv"_s, 2)) {
        SCOPED_TRACE(rule[0].toStdString());
        const QRegularExpression expression(rule[1]);
        const Protease protease = Protease::named(rule[0]).value();
        for (int i = 0; i < testRounds(40); ++i) {
            const QString text = randomText(random, oddLetters, 300);
            const std::vector<qsizetype> cuts = cutsOf(protease, text);
            ASSERT_EQ(cuts, placesThatMatch(expression, text)) << text.toStdString();
            cutCount += qsizetype(cuts.size());
        }
    }
    EXPECT_GT(cutCount, 10000);
}

/// A look-behind or look-ahead, plain or negated, of one or two letters or classes.
QString randomLookaround(std::mt19937& random)
{
    static const QStringList openings = {u"(?<="_s, u"(?<!"_s, u"(?="_s, u"(?!"_s};
    static const QStringList letters = {u"A"_s, u"B"_s, u"[AB]"_s, u"[^A]"_s, u"[^BC]"_s};
    const auto pick = [&random](const QStringList& texts) {
        return texts[std::uniform_int_distribution<qsizetype>(0, texts.size() - 1)(random)];
    };
    const QString second = random() % 2 == 0 ? pick(letters) : QString();
    return pick(openings) + pick(letters) + second + u')';
}

QString randomExpression(std::mt19937& random, int depth = 0)
{
    QString expression;
    for (auto branch = random() % 3; branch < 3; ++branch) {
        if (!expression.isEmpty())
            expression += u'|';
        for (auto factor = random() % 3; factor < 3; ++factor) {
            if (depth < 2 && random() % 5 == 0)
                expression += u"(?:"_s + randomExpression(random, depth + 1) + u')';
            else
                expression += randomLookaround(random);
        }
    }
    return expression;
}

TEST(Protease, AnyCombinationOfLookaroundsCutsLikeItsExpression)
{
    std::mt19937 random(testSeed(7));
    const QStringList texts = allTexts(u"ABC"_s, 5);
    int compiled = 0;
    int others = 0;
    for (int i = 0; i < 400; ++i) {
        const QString expression = randomExpression(random);
        SCOPED_TRACE(expression.toStdString());
        const Protease protease = Protease::fromExpression(expression).value();
        (protease.isCompiled() ? compiled : others) += 1;
        const QRegularExpression engine(expression);
        for (const QString& text : texts)
            ASSERT_EQ(cutsOf(protease, text), placesThatMatch(engine, text)) << text.toStdString();
    }
    EXPECT_GT(compiled, 200);
    EXPECT_GT(others, 20);
}

TEST(Protease, WhatLetterClassesCannotSayIsLeftToTheExpressionEngine)
{
    for (const QString& expression :
         {u"(?<=K|R)(?!P)"_s, u"(?<=[K-R])"_s, u"(?<=K.)"_s, u"(?<=KKK)"_s, u"(?=K)*"_s,
          u"(?i)(?<=k)"_s, u"(?<=\\w)(?=K)"_s, u"(?<=K)(?#why)"_s, u"^|(?<=K)"_s, u"(?<=K)(?!)"_s,
          u"(?<=[])K])"_s}) {
        SCOPED_TRACE(expression.toStdString());
        const Protease protease = Protease::fromExpression(expression).value();
        EXPECT_FALSE(protease.isCompiled());
        const QRegularExpression engine(expression);
        for (const QString& text : allTexts(u"KRPA"_s, 4))
            ASSERT_EQ(cutsOf(protease, text), placesThatMatch(engine, text)) << text.toStdString();
    }
}

TEST(Protease, AnExpressionThatTakesLettersCutsBehindThem)
{
    const Protease protease = Protease::fromExpression(u"[KR](?!P)"_s, u"mine"_s).value();
    EXPECT_EQ(protease.name(), u"mine"_s);
    EXPECT_TRUE(protease.accession().isEmpty());
    EXPECT_EQ(productsOf(protease, u"AKRPGRK"_s), u"AK RPGR K"_s);
}

TEST(Protease, TheEmptyExpressionCutsEverywhere)
{
    EXPECT_EQ(productsOf(Protease::fromExpression(QString()).value(), u"AKR"_s), u"A K R"_s);
}

TEST(Protease, ExpressionsThatAreNoneAreRefusedAtTheirPlace)
{
    const Parsed<Protease> protease = Protease::fromExpression(u"(?<=K"_s);
    ASSERT_FALSE(protease.hasValue());
    EXPECT_EQ(protease.error().position, QRegularExpression(u"(?<=K"_s).patternErrorOffset());
    EXPECT_TRUE(protease.error().message.startsWith(u"expected a regular expression"_s));
    EXPECT_FALSE(Protease::fromExpression(u"[K"_s).hasValue());
    EXPECT_FALSE(Ribonuclease::fromExpression(u"("_s).hasValue());
}

/// Deep groups would exhaust the stack of a reader that follows them all.
TEST(Protease, GroupsOfAnyDepthAreReadOrLeftToTheExpressionEngine)
{
    const auto nested = [](qsizetype depth) -> QString {
        return QString(depth, u'(') + u"(?<=K)" + QString(depth, u')');
    };
    EXPECT_TRUE(Protease::fromExpression(nested(8))->isCompiled());
    const Protease deeper = Protease::fromExpression(nested(100)).value();
    EXPECT_FALSE(deeper.isCompiled());
    EXPECT_EQ(productsOf(deeper, u"AKA"_s), u"AK A"_s);
    static_cast<void>(Protease::fromExpression(nested(100000)));
}

/// The engine refuses text with half a surrogate pair as a whole and steps over whole pairs.
TEST(Protease, CharactersBeyondTheBasicPlaneAreLettersOfNoClassBothWays)
{
    const QString pair = QString::fromUcs4(U"\U0001F9EC");
    const Protease compiled = Protease::fromExpression(u"(?<=[^K])(?!R)"_s).value();
    const Protease engine = Protease::fromExpression(u"(?<=[^K]|ZZ)(?!R)"_s).value();
    ASSERT_NE(compiled.isCompiled(), engine.isCompiled());
    for (const QString& text :
         QStringList{u"AK"_s + pair + u"KR"_s, u"A"_s + pair.first(1) + u"RK"_s,
                     pair.last(1) + u"A"_s, pair + pair}) {
        EXPECT_EQ(cutsOf(compiled, text), cutsOf(engine, text));
    }
    EXPECT_EQ(cutsOf(compiled, pair + pair), (std::vector<qsizetype>{1, 2, 3}));
}

TEST(Protease, AnEngineThatGivesUpIsReported)
{
    const Protease protease = Protease::fromExpression(u"(?=((A+)+)+[BC])"_s).value();
    std::vector<qsizetype> cuts = {1};
    EXPECT_FALSE(protease.findCuts(QString(60, u'A').append(u'D'), &cuts));
    EXPECT_TRUE(cuts.empty());
    EXPECT_TRUE(protease.findCuts(u"AAB"_s, &cuts));
    EXPECT_EQ(cuts.size(), 1U);
}

TEST(Protease, NoCleavageAndUnspecificCleavageHaveNoCuts)
{
    const Protease none = Protease::named(u"no cleavage").value();
    const Protease unspecific = Protease::named(u"unspecific cleavage").value();
    EXPECT_TRUE(cutsOf(none, u"KRKR"_s).empty());
    EXPECT_TRUE(cutsOf(unspecific, u"KRKR"_s).empty());
    EXPECT_FALSE(none.isUnspecific());
    EXPECT_TRUE(unspecific.isUnspecific());
    EXPECT_FALSE(Protease::named(u"Trypsin")->isUnspecific());
}

/// The specificities as published for each enzyme.
TEST(Ribonuclease, EachCutsWhereItIsKnownTo)
{
    const QString rna = u"GACUGGCCAUUCGUA"_s;
    EXPECT_EQ(productsOf(Ribonuclease::named(u"RNase T1").value(), rna), u"G ACUG G CCAUUCG UA"_s);
    EXPECT_EQ(productsOf(Ribonuclease::named(u"RNase A").value(), rna),
              u"GAC U GGC C AU U C GU A"_s);
    EXPECT_EQ(productsOf(Ribonuclease::named(u"RNase U2").value(), rna),
              u"G A CUG G CCA UUCG UA"_s);
    EXPECT_EQ(productsOf(Ribonuclease::named(u"cusativin").value(), rna), u"GAC UGGCC AUUC GUA"_s);
    EXPECT_EQ(productsOf(Ribonuclease::named(u"MC1").value(), rna), u"GAC UGGCCA U UCGUA"_s);
}

TEST(Ribonuclease, EachCutsLikeItsExpressionInAllShortTexts)
{
    const QStringList texts = allTexts(u"ACGU"_s, 5);
    const QList<QStringList> rules = rulesOf(u"ribonucleases.tsv"_s, 1);
    EXPECT_EQ(rules.size(), 5);
    for (const QStringList& rule : rules) {
        const Ribonuclease enzyme = Ribonuclease::named(rule[0]).value();
        EXPECT_TRUE(enzyme.isCompiled());
        const QRegularExpression expression(rule[1]);
        for (const QString& text : texts)
            ASSERT_EQ(cutsOf(enzyme, text), placesThatMatch(expression, text));
    }
}

TEST(Ribonuclease, ANameIsReadWithAndWithoutItsKind)
{
    EXPECT_EQ(Ribonuclease::named(u"t1")->name(), u"RNase T1"_s);
    EXPECT_EQ(Ribonuclease::named(u"rnase mc1")->name(), u"MC1"_s);
    EXPECT_EQ(Ribonuclease::named(u"Cusativin")->name(), u"cusativin"_s);
    EXPECT_EQ(Ribonuclease::names().size(), 5);
    EXPECT_EQ(Ribonuclease::fromExpression(u"(?<=A)"_s, u"U2, A only"_s)->name(), u"U2, A only"_s);
    const std::vector<RefusedText> texts = {
        {u"RNase T2"_s, 0, u"RNase T1"_s},
        {u"Trypsin"_s, 0, u"a ribonuclease"_s},
        {u"RNase "_s, 0, u"a ribonuclease"_s},
        {u""_s, 0, u"a ribonuclease"_s},
    };
    expectRefused(&Ribonuclease::named, texts);
}

} // namespace

} // namespace ions
