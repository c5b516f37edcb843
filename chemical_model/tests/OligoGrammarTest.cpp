#include "MessageRecorder.h"
#include "TestPrinters.h"
#include <ChemicalFactory.h>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

using chem::ChemicalFactory;

bool isValid(const QString& text)
{
    return chem::defaultChemicalFactory()->isValidOligoSequence(text);
}

TEST(OligoGrammar, ExpressionsOfTheDefaultDictionaries)
{
    const auto factory = chem::defaultChemicalFactory();
    EXPECT_EQ(factory->generateOligoSequenceRegex().pattern(),
              u"([+defmr]?)(([ACGQTU])|([-+]?[0-9]*\\.?[0-9]+))([*.]*)"_s);
    EXPECT_EQ(factory->generateFullOligoRegex().pattern(),
              u"^([\\[{]?)(([+defmr]?([ACGQTU]|([-+]?[0-9]*\\.?[0-9]+))[*.]*)+)([\\]}]?)$"_s);
    for (const auto& expression :
         {factory->generateOligoSequenceRegex(), factory->generateFullOligoRegex()}) {
        EXPECT_TRUE(expression.isValid());
        EXPECT_EQ(expression.patternOptions(), QRegularExpression::NoPatternOption);
    }
}

TEST(OligoGrammar, CapturesOfTheUnitExpression)
{
    const auto match =
        chem::defaultChemicalFactory()->generateOligoSequenceRegex().match(u"rA*."_s);
    EXPECT_EQ(match.captured(1), u"r"_s);
    EXPECT_EQ(match.captured(2), u"A"_s);
    EXPECT_EQ(match.captured(3), u"A"_s);
    EXPECT_EQ(match.captured(4), QString());
    EXPECT_EQ(match.captured(5), u"*."_s);
}

TEST(OligoGrammar, CapturesOfTheFullExpression)
{
    const auto match =
        chem::defaultChemicalFactory()->generateFullOligoRegex().match(u"{rA*-5.5T}"_s);
    EXPECT_EQ(match.captured(1), u"{"_s);
    EXPECT_EQ(match.captured(2), u"rA*-5.5T"_s);
    EXPECT_EQ(match.captured(6), u"}"_s);
}

TEST(OligoGrammar, KeysGoIntoTheirClassesEscapedAndSimplified)
{
    const auto factory = ChemicalFactory::construct(QString());
    factory->setBuildingBlock(ChemicalFactory::NucleobaseBlock, u"X[]"_s, QString(), QString());
    factory->setBuildingBlock(ChemicalFactory::RiboseBlock, u"  a \t b "_s, QString(), QString());
    factory->setBuildingBlock(ChemicalFactory::PhosphateBlock, u"%2"_s, QString(), QString());
    EXPECT_EQ(factory->generateOligoSequenceRegex().pattern(),
              u"([a b+defmr]?)(([ACGQTUX\\[\\]])|([-+]?[0-9]*\\.?[0-9]+))([%2*.]*)"_s);
}

TEST(OligoGrammar, JudgesTexts)
{
    const QList<std::pair<QString, bool>> cases = {{u""_s, false},
                                                   {u"A"_s, true},
                                                   {u"AC,GT"_s, true},
                                                   {u"AC,"_s, false},
                                                   {u",AC"_s, false},
                                                   {u","_s, false},
                                                   {u"AC,,GT"_s, false},
                                                   {u"A C"_s, false},
                                                   {u" AC"_s, false},
                                                   {u"[AC]"_s, true},
                                                   {u"{AC}"_s, true},
                                                   {u"[AC}"_s, true},
                                                   {u"AC["_s, false},
                                                   {u"]AC"_s, false},
                                                   {u"[[AC"_s, false},
                                                   {u"AC]]"_s, false},
                                                   {u"[]"_s, false},
                                                   {u"rA*mC"_s, true},
                                                   {u"+5"_s, true},
                                                   {u"-5"_s, true},
                                                   {u"++5"_s, true},
                                                   {u"+-5"_s, true},
                                                   {u"--5"_s, false},
                                                   {u"A.5"_s, true},
                                                   {u"12"_s, true},
                                                   {u"1."_s, true},
                                                   {u".5"_s, true},
                                                   {u"."_s, false},
                                                   {u"1.5.5"_s, true},
                                                   {u"A+"_s, false},
                                                   {u"A-"_s, false},
                                                   {u"a"_s, false},
                                                   {u"dA"_s, true},
                                                   {u"ddA"_s, false},
                                                   {u"X"_s, false},
                                                   {u"A*"_s, true},
                                                   {u"*A"_s, false},
                                                   {u"A\n"_s, true},
                                                   {u"A\n\n"_s, false},
                                                   {u"\nA"_s, false},
                                                   {u"[A],{C}"_s, true},
                                                   {u"A,C\n"_s, true},
                                                   {u"A\n,C"_s, true},
                                                   {u"1e5"_s, true},
                                                   {u"1E5"_s, false},
                                                   {QString(QChar(0xd800)), false},
                                                   {u"A"_s + QChar(0xdc00), false},
                                                   {u"A😀"_s, false},
                                                   {u"A"_s + QChar(u'\0'), false}};
    for (const auto& [text, expected] : cases)
        EXPECT_EQ(isValid(text), expected) << '"' << text.toStdString() << '"';
}

TEST(OligoGrammar, SignBelongsToTheRiboseFirst)
{
    QList<QSharedPointer<const chem::Nucleotide>> nucleotides;
    chem::NamedMolecule five;
    chem::NamedMolecule three;
    const auto factory = chem::defaultChemicalFactory();
    factory->parseNucleotideSequence(u"+5"_s, &nucleotides, &five, &three);
    ASSERT_EQ(nucleotides.size(), 1);
    EXPECT_EQ(nucleotides[0]->ribose.code, u"+"_s);
    EXPECT_EQ(nucleotides[0]->nucleobase.monoMass(), 5.0);
}

TEST(OligoGrammar, FinalLineFeedIsNoPartOfTheText)
{
    const auto complex = chem::defaultChemicalFactory();
    QList<QSharedPointer<const chem::Nucleotide>> nucleotides;
    chem::NamedMolecule five;
    chem::NamedMolecule three;
    EXPECT_TRUE(complex->parseNucleotideSequence(u"A*]\n"_s, &nucleotides, &five, &three));
    ASSERT_EQ(nucleotides.size(), 1);
    EXPECT_EQ(nucleotides[0]->code, u"A*"_s);
    EXPECT_EQ(three.name, u"3'-OH"_s);
}

TEST(OligoGrammar, StoredBaseIsLegalAtOnce)
{
    const auto factory = ChemicalFactory::construct(QString());
    EXPECT_FALSE(factory->isValidOligoSequence(u"X"_s));
    factory->setBuildingBlock(ChemicalFactory::NucleobaseBlock, u"X"_s, u"Inosine"_s, u"C5H3N4O"_s);
    EXPECT_TRUE(factory->isValidOligoSequence(u"X"_s));
    EXPECT_EQ(factory->constructLinearOligoComplex(u"X"_s)->residues[1]->name, u"Inosine"_s);
}

TEST(OligoGrammar, KeyOfSeveralCharactersAddsEachOfThem)
{
    const auto factory = ChemicalFactory::construct(QString());
    factory->setBuildingBlock(ChemicalFactory::NucleobaseBlock, u"YZ"_s, u"Both"_s, u"C5"_s);
    EXPECT_TRUE(factory->isValidOligoSequence(u"YAZ"_s));
    const auto complex = factory->constructLinearOligoComplex(u"Y"_s);
    EXPECT_TRUE(complex->residues[1]->name.isEmpty()); // no entry of its own, so no mass either
    EXPECT_EQ(complex->residues[1]->formula().toString(), u"C5H7O2"_s);
}

TEST(OligoGrammar, SpecialCharactersKeepTheirMeaning)
{
    const auto factory = ChemicalFactory::construct(QString());
    factory->setBuildingBlock(ChemicalFactory::NucleobaseBlock, u"V-Z"_s, QString(), QString());
    EXPECT_TRUE(factory->isValidOligoSequence(u"VWXYZ"_s));
    factory->setBuildingBlock(ChemicalFactory::PhosphateBlock, u"\\d"_s, QString(), QString());
    EXPECT_TRUE(factory->isValidOligoSequence(u"A7"_s));
    const QString longText = u"VA7"_s.repeated(20000);
    EXPECT_TRUE(factory->isValidOligoSequence(longText));
}

TEST(OligoGrammar, KeyThatBreaksTheExpressionMakesEveryTextInvalid)
{
    for (const QString& key : {u"z-a"_s, u"\\"_s, QString(QChar(0xd800))}) {
        SCOPED_TRACE(key.toStdString());
        const auto factory = ChemicalFactory::construct(QString());
        factory->setBuildingBlock(ChemicalFactory::PhosphateBlock, key + u"~"_s, QString(),
                                  QString());
        factory->setBuildingBlock(ChemicalFactory::NucleobaseBlock, key, QString(), QString());
        const bool isBroken = !factory->generateFullOligoRegex().isValid();
        const MessageRecorder recorder;
        EXPECT_EQ(factory->isValidOligoSequence(u"A"_s), !isBroken);
        EXPECT_EQ(factory->constructLinearOligoComplex(u"A"_s).isNull(), isBroken);
        EXPECT_TRUE(MessageRecorder::messages().isEmpty());
    }
}

TEST(OligoGrammar, FactoryWithoutDictionariesKnowsNoText)
{
    const auto factory = ChemicalFactory::construct(u" "_s);
    const MessageRecorder recorder;
    EXPECT_FALSE(factory->isValidOligoSequence(u"A"_s));
    EXPECT_FALSE(factory->isValidOligoSequence(u"1"_s));
    EXPECT_EQ(factory->generateOligoSequenceRegex().pattern(),
              u"([]?)(([])|([-+]?[0-9]*\\.?[0-9]+))([]*)"_s);
    EXPECT_TRUE(MessageRecorder::messages().isEmpty());
}

} // namespace
