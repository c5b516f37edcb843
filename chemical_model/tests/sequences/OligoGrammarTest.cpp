#include "MessageRecorder.h"
#include "OpenFactory.h"
#include "TestPrinters.h"
#include <ChemicalFactory.h>

#include <QRegularExpression>

#include <gtest/gtest.h>

#include <chrono>

using namespace Qt::StringLiterals;

namespace {

using chem::ChemicalFactory;

const QString number = u"([-+]?[0-9]*\\.?[0-9]+)"_s;

/// A factory without any dictionary: an isotope text that cannot be read ends its making early.
OpenFactory emptyFactory()
{
    return OpenFactory(u" "_s);
}

void addBlock(ChemicalFactory* factory, ChemicalFactory::BuildingBlockType type, const QString& key)
{
    factory->setBuildingBlock(type, key, u"some name"_s, u"C"_s);
}

bool isValidOligo(const QString& text)
{
    return chem::defaultChemicalFactory()->isValidOligoSequence(text);
}

// The two expressions.

TEST(OligoGrammar, ExpressionsAreFilledWithTheKeysInMapOrder)
{
    const auto factory = chem::defaultChemicalFactory();
    EXPECT_EQ(factory->generateFullOligoRegex().pattern(),
              u"^([\\[{]?)(([+defmr]?([ACGQTU]|([-+]?[0-9]*\\.?[0-9]+))[*.]*)+)([\\]}]?)$"_s);
    EXPECT_EQ(factory->generateOligoSequenceRegex().pattern(),
              u"([+defmr]?)(([ACGQTU])|([-+]?[0-9]*\\.?[0-9]+))([*.]*)"_s);
}

TEST(OligoGrammar, ExpressionsHaveNoOptions)
{
    const auto factory = chem::defaultChemicalFactory();
    EXPECT_EQ(factory->generateFullOligoRegex().patternOptions(),
              QRegularExpression::NoPatternOption);
    EXPECT_EQ(factory->generateOligoSequenceRegex().patternOptions(),
              QRegularExpression::NoPatternOption);
}

TEST(OligoGrammar, WithoutDictionariesTheClassesAreEmptyAndNothingCompiles)
{
    const OpenFactory factory = emptyFactory();
    const QRegularExpression full = factory.generateFullOligoRegex();
    const QRegularExpression unit = factory.generateOligoSequenceRegex();
    EXPECT_EQ(full.pattern(), u"^([]?)(([]?([]|"_s + number + u")[]*)+)([]?)$"_s);
    EXPECT_EQ(unit.pattern(), u"([]?)(([])|"_s + number + u")([]*)"_s);
    EXPECT_FALSE(full.isValid());
    EXPECT_FALSE(factory.isValidOligoSequence(u"A"_s));
    EXPECT_FALSE(factory.isValidOligoSequence(u"5"_s));
}

/// The unit expression of a factory whose only nucleobase key is `key`, and with plain keys
/// elsewhere.
QString unitWithBase(const QString& key)
{
    OpenFactory factory = emptyFactory();
    addBlock(&factory, ChemicalFactory::RiboseBlock, u"r"_s);
    addBlock(&factory, ChemicalFactory::NucleobaseBlock, key);
    addBlock(&factory, ChemicalFactory::PhosphateBlock, u"p"_s);
    return factory.generateOligoSequenceRegex().pattern();
}

TEST(OligoGrammar, KeysBecomeCharactersOfTheClass)
{
    const QList<std::pair<QString, QString>> keysAndClasses = {
        {u"X"_s, u"X"_s},
        {u"XYZ"_s, u"XYZ"_s},         // each character is legal by itself
        {u" a \t b\n"_s, u"a b"_s},   // outer blanks go, inner runs become one
        {u"["_s, u"\\["_s},           // brackets are escaped
        {u"a]b[c"_s, u"a\\]b\\[c"_s}, //
        {u"a-z"_s, u"a-z"_s},         // everything else keeps its meaning
        {u"^"_s, u"^"_s},             //
        {u"\\d"_s, u"\\d"_s},         //
        {u"\\"_s, u"\\"_s},           //
        {u"%1"_s, u"%1"_s},           // and place markers stay plain
        {u"%2"_s, u"%2"_s},           //
        {u"%4"_s, u"%4"_s},           //
        {u"%99"_s, u"%99"_s},         //
    };
    for (const auto& [key, inside] : keysAndClasses) {
        SCOPED_TRACE(key.toStdString());
        EXPECT_EQ(unitWithBase(key), u"([r]?)((["_s + inside + u"])|"_s + number + u")([p]*)"_s);
    }
}

TEST(OligoGrammar, PlaceMarkersStayPlainInEveryClass)
{
    OpenFactory factory = emptyFactory();
    addBlock(&factory, ChemicalFactory::FivePrimeTerminalBlock, u"%2"_s);
    addBlock(&factory, ChemicalFactory::RiboseBlock, u"%3"_s);
    addBlock(&factory, ChemicalFactory::NucleobaseBlock, u"%5"_s);
    addBlock(&factory, ChemicalFactory::PhosphateBlock, u"%6"_s);
    addBlock(&factory, ChemicalFactory::ThreePrimeTerminalBlock, u"%1"_s);
    EXPECT_EQ(factory.generateFullOligoRegex().pattern(),
              u"^([%2]?)(([%3]?([%5]|"_s + number + u")[%6]*)+)([%1]?)$"_s);
    EXPECT_TRUE(factory.isValidOligoSequence(u"2%5%61"_s));
}

TEST(OligoGrammar, OtherKindsOfBlocksAreNoPartOfIt)
{
    OpenFactory factory;
    const QString before = factory.generateFullOligoRegex().pattern();
    for (const auto type : {ChemicalFactory::AminoAcidBlock, ChemicalFactory::GlycanBlock,
                            ChemicalFactory::SugarBlock, ChemicalFactory::ProteinNTerminalBlock,
                            ChemicalFactory::ProteinCTerminalBlock, ChemicalFactory::NTerminalBlock,
                            ChemicalFactory::CTerminalBlock, ChemicalFactory::NoBlock})
        addBlock(&factory, type, u"X"_s);
    EXPECT_EQ(factory.generateFullOligoRegex().pattern(), before);
    EXPECT_FALSE(factory.isValidOligoSequence(u"X"_s));
}

TEST(OligoGrammar, CapturesAreTheMarksAndTheBody)
{
    const auto match = chem::defaultChemicalFactory()->generateFullOligoRegex().match(u"{rA*5]"_s);
    ASSERT_TRUE(match.hasMatch());
    EXPECT_EQ(match.captured(1), u"{"_s);
    EXPECT_EQ(match.captured(2), u"rA*5"_s);
    EXPECT_EQ(match.captured(6), u"]"_s);
}

TEST(OligoGrammar, CapturesOfAUnitAreItsParts)
{
    const QRegularExpression unit = chem::defaultChemicalFactory()->generateOligoSequenceRegex();
    const auto base = unit.match(u"rA*."_s);
    EXPECT_EQ(base.captured(1), u"r"_s);
    EXPECT_EQ(base.captured(2), u"A"_s);
    EXPECT_EQ(base.captured(3), u"A"_s);
    EXPECT_EQ(base.captured(4), QString());
    EXPECT_EQ(base.captured(5), u"*."_s);
    const auto mass = unit.match(u"-1.5"_s);
    EXPECT_EQ(mass.captured(2), u"-1.5"_s);
    EXPECT_EQ(mass.captured(3), QString());
    EXPECT_EQ(mass.captured(4), u"-1.5"_s);
}

// Which texts are legal.

TEST(OligoGrammar, TextsOfTheGrammarAreValid)
{
    for (const QString& text : {
             u"A"_s,       u"dA"_s,    u"rA*mC"_s, u"[AC]"_s,    u"{AC}"_s,
             u"[AC"_s,     u"AC}"_s,   u"AC,GT"_s, u"{A},[C]"_s, u"A**..*"_s,
             u"+5"_s,  // ribose + with the number 5
             u"-5"_s,  // a negative mass
             u"++5"_s, // ribose + with the number +5
             u"r-5"_s,     u"12"_s,    u".5"_s,    u"1.5"_s,
             u"1."_s,  // the number 1 with a phosphate
             u"A.5"_s, // A with a phosphate, then the number 5
             u"1.5.5"_s,   u"1..5"_s,  u"+.5"_s,   u"007"_s,
             u"1e5"_s, // the number 1, then ribose e with the number 5
             u"A\n"_s,     u"[A]\n"_s,
             u"A\n,C\n"_s, // each part may end in a line feed
         })
        EXPECT_TRUE(isValidOligo(text)) << text.toStdString();
}

TEST(OligoGrammar, OtherTextsAreInvalid)
{
    for (const QString& text :
         {QString(),  u""_s,     u","_s,   u"AC,"_s,   u",AC"_s, u"A,,C"_s,  u"A C"_s,
          u" A"_s,    u"A "_s,   u"AC["_s, u"]AC"_s,   u"[]"_s,  u"[[A]]"_s, u"A][C"_s,
          u"A+"_s,    u"r"_s,    u"rr"_s,  u"rrA"_s,   u"a"_s,   u"X"_s,     u"*"_s,
          u"*A"_s,    u"."_s,    u"-"_s,   u"+"_s,     u"--5"_s, u"A/C"_s,   u"\n"_s,
          u"A\n\n"_s, u"A\nC"_s, u"\nA"_s, u"A\r\n"_s, u"é"_s,   u"A😀"_s})
        EXPECT_FALSE(isValidOligo(text)) << text.toStdString();
}

TEST(OligoGrammar, LoneSurrogatesAreInvalid)
{
    for (const QChar surrogate : {QChar(0xd83d), QChar(0xde00)}) {
        EXPECT_FALSE(isValidOligo(QString(surrogate)));
        EXPECT_FALSE(isValidOligo(QString(surrogate) + u"A"_s));
        EXPECT_FALSE(isValidOligo(u"A"_s + QString(surrogate)));
    }
}

TEST(OligoGrammar, CommasPartTextsForTheTestOnly)
{
    QList<QSharedPointer<const chem::Nucleotide>> nucleotides;
    chem::NamedMolecule fivePrime;
    chem::NamedMolecule threePrime;
    EXPECT_TRUE(isValidOligo(u"AC,GT"_s));
    EXPECT_FALSE(chem::defaultChemicalFactory()->parseNucleotideSequence(u"AC,GT"_s, &nucleotides,
                                                                         &fivePrime, &threePrime));
    EXPECT_TRUE(nucleotides.isEmpty());
}

// The grammar follows the dictionaries.

TEST(OligoGrammar, NewBlocksAreLegalAtOnce)
{
    OpenFactory factory;
    const OpenFactory earlierCopy = factory;
    ASSERT_FALSE(factory.isValidOligoSequence(u"<sX!>"_s));
    addBlock(&factory, ChemicalFactory::NucleobaseBlock, u"X"_s);
    EXPECT_TRUE(factory.isValidOligoSequence(u"X"_s));
    addBlock(&factory, ChemicalFactory::RiboseBlock, u"s"_s);
    addBlock(&factory, ChemicalFactory::PhosphateBlock, u"!"_s);
    addBlock(&factory, ChemicalFactory::FivePrimeTerminalBlock, u"<"_s);
    addBlock(&factory, ChemicalFactory::ThreePrimeTerminalBlock, u">"_s);
    EXPECT_TRUE(factory.isValidOligoSequence(u"<sX!>"_s));
    EXPECT_FALSE(earlierCopy.isValidOligoSequence(u"X"_s));
}

TEST(OligoGrammar, KeyOfSeveralCharactersMakesEachOfThemLegal)
{
    OpenFactory factory;
    addBlock(&factory, ChemicalFactory::NucleobaseBlock, u"XY"_s);
    EXPECT_TRUE(factory.isValidOligoSequence(u"X"_s));
    EXPECT_TRUE(factory.isValidOligoSequence(u"YX"_s));
}

TEST(OligoGrammar, BlankInsideAKeyMakesBlanksLegal)
{
    OpenFactory factory;
    addBlock(&factory, ChemicalFactory::PhosphateBlock, u"p  q"_s);
    EXPECT_TRUE(factory.isValidOligoSequence(u"A C"_s));
}

TEST(OligoGrammar, RangesAndNegationsKeepTheirMeaning)
{
    OpenFactory range;
    addBlock(&range, ChemicalFactory::NucleobaseBlock, u"a-c"_s);
    EXPECT_TRUE(range.isValidOligoSequence(u"ab"_s));
    EXPECT_FALSE(range.isValidOligoSequence(u"-"_s));

    OpenFactory negation = emptyFactory();
    addBlock(&negation, ChemicalFactory::FivePrimeTerminalBlock, u"<"_s);
    addBlock(&negation, ChemicalFactory::RiboseBlock, u"r"_s);
    addBlock(&negation, ChemicalFactory::NucleobaseBlock, u"^A"_s); // all but A
    addBlock(&negation, ChemicalFactory::PhosphateBlock, u"*"_s);
    addBlock(&negation, ChemicalFactory::ThreePrimeTerminalBlock, u">"_s);
    EXPECT_TRUE(negation.isValidOligoSequence(u"C😀é^"_s));
    EXPECT_FALSE(negation.isValidOligoSequence(u"CA"_s));
}

TEST(OligoGrammar, KeyThatBreaksTheExpressionMakesEveryTextInvalid)
{
    for (const QString& key : {u"z-a"_s, u"~\\"_s, u"\\x{110000}"_s, QString(QChar(0xd83d))}) {
        SCOPED_TRACE(key.toStdString());
        OpenFactory factory;
        addBlock(&factory, ChemicalFactory::ThreePrimeTerminalBlock, key);
        EXPECT_FALSE(factory.generateFullOligoRegex().isValid());
        EXPECT_FALSE(factory.isValidOligoSequence(u"A"_s));
        EXPECT_FALSE(factory.constructLinearOligoComplex(u"A"_s));
    }
}

TEST(OligoGrammar, BrokenExpressionsAreNotReported)
{
    // Matching with an invalid expression would write a warning of Qt's for each text.
    const MessageRecorder recorder;
    for (const QString& key : {u"z-a"_s, u"~\\"_s, u"\\c"_s, u"[:no:]"_s, u"\\]("_s}) {
        for (const auto type : {ChemicalFactory::RiboseBlock, ChemicalFactory::PhosphateBlock}) {
            OpenFactory factory;
            addBlock(&factory, type, key);
            factory.isValidOligoSequence(u"A,C"_s);
            factory.constructLinearOligoComplex(u"rA*C"_s);
        }
    }
    EXPECT_TRUE(recorder.messages().isEmpty());
}

TEST(OligoGrammar, ClassThatLooksLikeANamedOneDoesNotCompile)
{
    OpenFactory factory = emptyFactory();
    addBlock(&factory, ChemicalFactory::FivePrimeTerminalBlock, u"<"_s);
    addBlock(&factory, ChemicalFactory::RiboseBlock, u"r"_s);
    addBlock(&factory, ChemicalFactory::NucleobaseBlock, u"A"_s);
    addBlock(&factory, ChemicalFactory::PhosphateBlock, u"."_s);
    addBlock(&factory, ChemicalFactory::ThreePrimeTerminalBlock, u">"_s);
    ASSERT_TRUE(factory.isValidOligoSequence(u"A."_s));
    addBlock(&factory, ChemicalFactory::PhosphateBlock, u"..."_s); // [....] could be a name
    EXPECT_FALSE(factory.generateFullOligoRegex().isValid());
    EXPECT_FALSE(factory.isValidOligoSequence(u"A"_s));
}

TEST(OligoGrammar, KeyThatClosesItsClassGoesOnAsAnExpression)
{
    // The key `\](?:PEG)` ends the class behind an escaped backslash, so the rest is an alternative
    // of its own: what that means, the expression engine alone can tell.
    OpenFactory factory;
    addBlock(&factory, ChemicalFactory::NucleobaseBlock, u"\\](?:PEG)?[x"_s);
    const QRegularExpression full = factory.generateFullOligoRegex();
    for (const QString& text : {u"A"_s, u"\\"_s, u"\\PEGx"_s, u"PEG"_s, u"{rAx}"_s}) {
        SCOPED_TRACE(text.toStdString());
        EXPECT_EQ(factory.isValidOligoSequence(text),
                  full.isValid() && full.match(text).hasMatch());
    }
}

TEST(OligoGrammar, AlphabetTooLargeForTheEngineIsInvalidWhereTheEngineIsNeeded)
{
    OpenFactory factory;
    QString key;
    for (char32_t character = 0x20000; character < 0x40000; character += 2) // no ranges to fold
        key += QChar::fromUcs4(character);
    addBlock(&factory, ChemicalFactory::NucleobaseBlock, key);
    ASSERT_FALSE(factory.generateFullOligoRegex().isValid());
    EXPECT_FALSE(factory.isValidOligoSequence(u"A"_s));
}

// Engines differ in how many characters a class may have.
TEST(OligoGrammar, PlainAlphabetOfAnySizeIsMatchedOnEveryPlatform)
{
    OpenFactory factory;
    QString key;
    for (char16_t character = 0x3000; character < 0xd000; ++character)
        key += QChar(character);
    addBlock(&factory, ChemicalFactory::NucleobaseBlock, key);
    for (const QString& text : {u"A"_s, u"\u4e00"_s, u"A\u3001C*"_s})
        EXPECT_TRUE(factory.isValidOligoSequence(text)) << text.toStdString();
    for (const QString& text : {u"\ud000"_s, u""_s, u"r"_s})
        EXPECT_FALSE(factory.isValidOligoSequence(text)) << text.toStdString();
}

// Any length.

TEST(OligoGrammar, LongTextsAreMatchedInLinearTime)
{
    const auto factory = chem::defaultChemicalFactory();
    for (const int nucleotides : {10, 1000, 20000, 1000000}) {
        SCOPED_TRACE(nucleotides);
        const QString text = u"rA*"_s.repeated(nucleotides);
        EXPECT_TRUE(factory->isValidOligoSequence(u"{"_s + text + u"}"_s));
        EXPECT_FALSE(factory->isValidOligoSequence(text + u"!"_s));
        EXPECT_FALSE(factory->isValidOligoSequence(text + u"r"_s));
    }
}

TEST(OligoGrammar, DigitsBeforeAWrongCharacterAreRefusedAtOnce)
{
    // An engine that backtracks needs 30 milliseconds for 16 digits and twice that for each further
    // one.
    const auto start = std::chrono::steady_clock::now();
    for (const QString& end : {u"!"_s, u"+"_s, u"r"_s, u" "_s}) {
        EXPECT_FALSE(isValidOligo(u"1"_s.repeated(100000) + end));
        EXPECT_FALSE(isValidOligo(u"1."_s.repeated(100000) + end));
        EXPECT_FALSE(isValidOligo(u"+1"_s.repeated(100000) + end));
    }
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(10));
}

} // namespace
