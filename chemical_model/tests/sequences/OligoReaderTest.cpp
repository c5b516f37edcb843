#include "DrawnTexts.h"
#include "FragmentLists.h"
#include "OligoReadings.h"
#include "RandomMolecules.h"
#include "ReferenceFigures.h"
#include "SameMolecules.h"
#include "TestSeed.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

using namespace Qt::StringLiterals;
using namespace drawnTexts;
using namespace oligoReadings;
using namespace randomMolecules;

namespace {

using chem::ChemicalFactory;
using chem::Molecule;
using chem::NamedMolecule;

QString formulaOf(const Molecule& molecule)
{
    return molecule.formula().toString();
}

TEST(OligoReader, LastNucleotideLosesItsImplicitPhosphate)
{
    const Parsed at = parse(u"AT"_s);
    ASSERT_TRUE(at.isValid);
    ASSERT_EQ(at.nucleotides.size(), 2);
    EXPECT_EQ(at.nucleotides[0]->name, u"Adenine"_s);
    EXPECT_EQ(at.nucleotides[0]->code, u"A"_s);
    EXPECT_EQ(at.nucleotides[0]->ribose.name, u"2'-deoxyribose (DNA)"_s);
    EXPECT_EQ(at.nucleotides[0]->ribose.code, QString());
    EXPECT_EQ(at.nucleotides[0]->phosphate.name, u"phosphodiester"_s);
    EXPECT_EQ(at.nucleotides[1]->nucleobase.code, u"T"_s);
    EXPECT_EQ(at.nucleotides[1]->ribose.name, u"2'-deoxyribose (DNA)"_s);
    EXPECT_TRUE(at.nucleotides[1]->phosphate.formula().isEmpty());
    EXPECT_EQ(strand(u"AT"_s)->formula().toString(), u"C20H26N7O10P"_s);
}

TEST(OligoReader, UnmarkedEndsAreNamedAndCarryNoCode)
{
    const Parsed a = parse(u"A"_s);
    EXPECT_EQ(a.fivePrime.name, u"5Prime"_s);
    EXPECT_EQ(a.fivePrime.code, QString());
    EXPECT_EQ(formulaOf(a.fivePrime), u"H"_s);
    EXPECT_EQ(a.threePrime.name, u"3Prime"_s);
    EXPECT_EQ(a.threePrime.code, QString());
    EXPECT_EQ(formulaOf(a.threePrime), u"HO"_s);
}

TEST(OligoReader, ExplicitPhosphateStaysAtTheEnd)
{
    for (const QString& text : {u"AT*"_s, u"AT."_s}) {
        SCOPED_TRACE(text.toStdString());
        const Parsed parsed = parse(text);
        ASSERT_EQ(parsed.nucleotides.size(), 2);
        EXPECT_EQ(parsed.nucleotides[1]->code, text.sliced(1));
        EXPECT_EQ(parsed.nucleotides[1]->phosphate.code, text.sliced(2));
        EXPECT_FALSE(parsed.nucleotides[1]->phosphate.formula().isEmpty());
    }
}

TEST(OligoReader, ExplicitPhosphateHasNoName)
{
    const Parsed parsed = parse(u"rA*"_s);
    ASSERT_EQ(parsed.nucleotides.size(), 1);
    const chem::Nucleotide& nucleotide = *parsed.nucleotides.first();
    EXPECT_EQ(nucleotide.code, u"rA*"_s);
    EXPECT_EQ(nucleotide.ribose.name, u"2'-hydroxy (RNA)"_s);
    EXPECT_EQ(nucleotide.phosphate.name, QString());
    EXPECT_EQ(nucleotide.phosphate.code, u"*"_s);
    EXPECT_EQ(formulaOf(nucleotide.phosphate), u"HO2PS"_s);
}

TEST(OligoReader, SeveralPhosphateMarksAddUpInOneLinkage)
{
    const Parsed parsed = parse(u"A**.C"_s);
    ASSERT_EQ(parsed.nucleotides.size(), 2);
    EXPECT_EQ(parsed.nucleotides[0]->phosphate.code, u"**."_s);
    EXPECT_EQ(formulaOf(parsed.nucleotides[0]->phosphate), u"H3O7P3S2"_s);
}

TEST(OligoReader, NumberAtTheEndTakesTheImplicitPhosphateBeforeIt)
{
    const Parsed implicitLinkage = parse(u"A100"_s);
    ASSERT_EQ(implicitLinkage.nucleotides.size(), 2);
    EXPECT_TRUE(implicitLinkage.nucleotides[0]->phosphate.formula().isEmpty());
    EXPECT_EQ(implicitLinkage.nucleotides[0]->code, u"A"_s);
    EXPECT_EQ(formulaOf(*implicitLinkage.nucleotides[0]), u"C10H11N5O2"_s);

    const Parsed explicitLinkage = parse(u"A*100"_s);
    ASSERT_EQ(explicitLinkage.nucleotides.size(), 2);
    EXPECT_EQ(explicitLinkage.nucleotides[0]->phosphate.code, u"*"_s);
}

TEST(OligoReader, NumberIsABaseOfThatMassWithoutSugarOrPhosphate)
{
    const Parsed parsed = parse(u"100.25A"_s);
    ASSERT_EQ(parsed.nucleotides.size(), 2);
    const chem::Nucleotide& number = *parsed.nucleotides[0];
    EXPECT_EQ(number.nucleobase.name, u"~~~"_s);
    EXPECT_EQ(number.nucleobase.code, u"100.25"_s);
    EXPECT_EQ(number.averageMass(), 100.25);
    EXPECT_EQ(number.monoMass(), 100.25);
    EXPECT_TRUE(number.formula().isEmpty());
    EXPECT_TRUE(number.ribose.name.isEmpty());
    EXPECT_TRUE(number.phosphate.name.isEmpty());
    EXPECT_EQ(number.code, u"100.25"_s);
    EXPECT_TRUE(parsed.nucleotides[1]->phosphate.formula().isEmpty());
}

TEST(OligoReader, NumberMayHaveAWrittenSugarAndPhosphate)
{
    const Parsed parsed = parse(u"r-5*A"_s);
    ASSERT_EQ(parsed.nucleotides.size(), 2);
    EXPECT_EQ(parsed.nucleotides[0]->ribose.code, u"r"_s);
    EXPECT_EQ(parsed.nucleotides[0]->nucleobase.averageMass(), -5.0);
    EXPECT_EQ(parsed.nucleotides[0]->phosphate.code, u"*"_s);
    EXPECT_EQ(parsed.nucleotides[0]->code, u"r-5*"_s);
}

TEST(OligoReader, BareNumberIsAMassWithoutTerminals)
{
    const Parsed bare = parse(u"100"_s);
    ASSERT_EQ(bare.nucleotides.size(), 1);
    EXPECT_EQ(bare.fivePrime.averageMass(), 0.0);
    EXPECT_TRUE(bare.fivePrime.name.isEmpty());
    EXPECT_EQ(bare.threePrime.averageMass(), 0.0);
    EXPECT_EQ(strand(u"100"_s)->averageMass(), 100.0);

    const Parsed marked = parse(u"[100]"_s);
    EXPECT_EQ(marked.fivePrime.name, u"5'-OH"_s);
    EXPECT_EQ(marked.threePrime.name, u"3'-OH"_s);

    const Parsed halfMarked = parse(u"[100"_s);
    EXPECT_EQ(halfMarked.fivePrime.name, u"5'-OH"_s);
    EXPECT_TRUE(halfMarked.threePrime.name.isEmpty());
}

TEST(OligoReader, MarksChooseTheTerminals)
{
    const Parsed parsed = parse(u"{AT}"_s);
    EXPECT_EQ(parsed.fivePrime.name, u"5'-P"_s);
    EXPECT_EQ(formulaOf(parsed.fivePrime), u"H2O3P"_s);
    EXPECT_EQ(parsed.threePrime.name, u"3'-P"_s);
    EXPECT_EQ(formulaOf(parsed.threePrime), u"H2O4P"_s);
}

/// Reads into what an earlier reading left.
bool readBehind(Parsed* earlier, const QString& text)
{
    return chem::defaultChemicalFactory()->parseNucleotideSequence(
        text, &earlier->nucleotides, &earlier->fivePrime, &earlier->threePrime);
}

TEST(OligoReader, RefusedTextAppendsNothingAndStillWritesTheTerminals)
{
    Parsed parsed = parse(u"[A]"_s);
    EXPECT_FALSE(readBehind(&parsed, u"A C"_s));
    EXPECT_EQ(parsed.nucleotides.size(), 1);
    EXPECT_EQ(parsed.fivePrime.name, u"5Prime"_s);
    EXPECT_EQ(parsed.threePrime.name, u"3Prime"_s);
}

TEST(OligoReader, NucleotidesAreAppendedBehindEarlierOnes)
{
    Parsed parsed = parse(u"AC."_s);
    EXPECT_TRUE(readBehind(&parsed, u"GT"_s));
    ASSERT_EQ(parsed.nucleotides.size(), 4);
    EXPECT_EQ(parsed.nucleotides[2]->code, u"G"_s);
}

// The list is the caller's: a lone number behind an entry keeps its terminals and takes the
// implicit phosphate of that entry.
TEST(OligoReader, NumberBehindEarlierNucleotidesCountsThemAsItsOwn)
{
    Parsed parsed = parse(u"AC"_s);
    parsed.nucleotides.removeLast(); // leaves A with its implicit phosphate
    EXPECT_TRUE(readBehind(&parsed, u"7"_s));
    ASSERT_EQ(parsed.nucleotides.size(), 2);
    EXPECT_TRUE(parsed.nucleotides[0]->phosphate.formula().isEmpty());
    EXPECT_EQ(parsed.fivePrime.name, u"5Prime"_s);
}

TEST(OligoReader, NumberBehindEarlierNucleotidesLeavesAWrittenPhosphate)
{
    Parsed parsed = parse(u"AC*"_s);
    EXPECT_TRUE(readBehind(&parsed, u"7"_s));
    ASSERT_EQ(parsed.nucleotides.size(), 3);
    EXPECT_EQ(formulaOf(parsed.nucleotides[1]->phosphate), u"HO2PS"_s);
}

TEST(OligoReader, BlanksAreIgnoredByTheTextEntryAlone)
{
    const auto complex = strand(u" A C\t"_s);
    ASSERT_TRUE(complex);
    expectSame(*complex, *strand(u"AC"_s));
    EXPECT_FALSE(parse(u"A C"_s).isValid);
}

TEST(OligoReader, TextOutsideTheGrammarGivesNoComplex)
{
    for (const QString& text : {u""_s, u"a"_s, u"A+"_s, u"AC["_s, u"AC,GT"_s, u"X"_s})
        EXPECT_FALSE(strand(text)) << text.toStdString();
}

// Truncation ladders.

QList<QSharedPointer<const chem::MoleculeComplex>> ladder(const QString& text, int five, int three)
{
    QList<QSharedPointer<const chem::MoleculeComplex>> complexes;
    chem::defaultChemicalFactory()->constructLinearOligoComplexes(text, five, three, &complexes);
    return complexes;
}

QStringList codesOf(const chem::MoleculeComplex& complex)
{
    QStringList codes;
    for (qsizetype i = 1; i < complex.residues.size() - 1; ++i)
        codes.append(complex.residues[i]->code);
    return codes;
}

TEST(OligoReader, LadderListsTheWholeThenBothEnds)
{
    const auto complexes = ladder(u"{ACGT}"_s, 2, 2);
    ASSERT_EQ(complexes.size(), 5);
    EXPECT_EQ(codesOf(*complexes[0]).join(u""_s), u"ACGT"_s);
    EXPECT_EQ(codesOf(*complexes[1]).join(u""_s), u"CGT"_s);
    EXPECT_EQ(codesOf(*complexes[2]).join(u""_s), u"GT"_s);
    EXPECT_EQ(codesOf(*complexes[3]).join(u""_s), u"ACG"_s);
    EXPECT_EQ(codesOf(*complexes[4]).join(u""_s), u"AC"_s);
    for (const auto& complex : complexes) {
        EXPECT_EQ(complex->residues.first()->name, u"5'-P"_s);
        EXPECT_EQ(complex->residues.last()->name, u"3'-P"_s);
    }
}

TEST(OligoReader, ThreePrimeTruncationKeepsTheImplicitPhosphate)
{
    const auto complexes = ladder(u"ACG"_s, 0, 1);
    ASSERT_EQ(complexes.size(), 2);
    const Molecule difference = *complexes[1] - *strand(u"AC"_s);
    EXPECT_EQ(formulaOf(difference), u"HO3P"_s);
}

TEST(OligoReader, LadderBeyondTheLengthFollowsTheListsRules)
{
    const auto fivePrime = ladder(u"AC"_s, 3, 0);
    ASSERT_EQ(fivePrime.size(), 4);
    EXPECT_EQ(fivePrime[2]->residues.size(), 2);
    EXPECT_EQ(fivePrime[3]->residues.size(), 2);
    EXPECT_EQ(fivePrime[2]->formula().toString(), u"H2O"_s);

    const auto threePrime = ladder(u"AC"_s, 0, 3);
    ASSERT_EQ(threePrime.size(), 4);
    EXPECT_EQ(threePrime[2]->residues.size(), 2);
    EXPECT_EQ(threePrime[3]->residues.size(), 4);
}

TEST(OligoReader, LadderOfRefusedTextHoldsTerminalsAlone)
{
    const auto complexes = ladder(u"A C"_s, 1, 1);
    ASSERT_EQ(complexes.size(), 3);
    for (const auto& complex : complexes) {
        ASSERT_EQ(complex->residues.size(), 2);
        EXPECT_EQ(complex->residues[0]->name, u"5Prime"_s);
        EXPECT_EQ(complex->residues[1]->name, u"3Prime"_s);
    }
}

TEST(OligoReader, LadderWithoutPositiveCountsIsTheWholeAlone)
{
    EXPECT_EQ(ladder(u"AC"_s, 0, 0).size(), 1);
    EXPECT_EQ(ladder(u"AC"_s, -3, -1).size(), 1);
}

TEST(OligoReader, LadderIsAppended)
{
    QList<QSharedPointer<const chem::MoleculeComplex>> complexes = {strand(u"A"_s)};
    chem::defaultChemicalFactory()->constructLinearOligoComplexes(u"CG"_s, 0, 0, &complexes);
    EXPECT_EQ(complexes.size(), 2);
}

TEST(OligoReader, ReadsTextsOfAnyLength)
{
    for (const int length : {10, 1000, 20000, 1000000}) {
        SCOPED_TRACE(length);
        const QString text = u"{"_s + u"rA*dCT"_s.repeated(length / 3 + 1) + u"}"_s;
        const Parsed parsed = parse(text);
        ASSERT_TRUE(parsed.isValid);
        EXPECT_EQ(parsed.nucleotides.size(), 3 * (length / 3 + 1));
        EXPECT_EQ(parsed.fivePrime.name, u"5'-P"_s);
        EXPECT_EQ(parsed.threePrime.name, u"3'-P"_s);
    }
}

TEST(OligoReader, RunsOfDigitsThatEndBadlyAreRefusedAtOnce)
{
    for (const QString& end : {u"!"_s, u"+"_s, u"e"_s})
        EXPECT_FALSE(parse(u"1"_s.repeated(100000) + end).isValid);
}

// Figures of others.

TEST(OligoReader, OligonucleotidesAgreeWithOtherPrograms)
{
    const QJsonArray rows = referenceRows(u"oligonucleotides.json"_s);
    ASSERT_EQ(rows.size(), 50);
    for (const QJsonValue& row : rows) {
        SCOPED_TRACE(row[u"text"].toString().toStdString());
        const auto complex = strand(row[u"text"].toString());
        ASSERT_TRUE(complex);
        expectFiguresOfChain(row, *complex);
    }
}

// Free acids; the sodium salts' formulas and masses stand in the prescribing information.
TEST(OligoReader, ApprovedDrugsHaveTheirPublishedFormulas)
{
    const auto nusinersen = strand(u"eT*eQ*eA*eQ*eT*eT*eT*eQ*eA*eT*eA*eA*eT*eG*eQ*eT*eG*eG"_s);
    EXPECT_EQ(formulaOf(*nusinersen), u"C234H340N61O128P17S17"_s);
    const Molecule salt = naturalFactory().modifyMolecule(*nusinersen, u"Na1H-1"_s, 17);
    EXPECT_EQ(formulaOf(salt), u"C234H323N61Na17O128P17S17"_s);
    EXPECT_NEAR(salt.averageMass(), 7501.0, 0.6);

    const auto mipomersen =
        strand(u"eG*eQ*eQ*eT*eQ*dA*dG*dT*dQ*dT*dG*dQ*dT*dT*dQ*eG*eQ*eA*eQ*eQ"_s);
    EXPECT_EQ(formulaOf(*mipomersen), u"C230H324N67O122P19S19"_s);
    EXPECT_NEAR(naturalFactory().modifyMolecule(*mipomersen, u"Na1H-1"_s, 19).averageMass(), 7594.9,
                0.6);
}

// Laws.

/// Nucleotides with their sugars written; every linkage is written as `linkage`, but for the last
/// nucleotide, which has none.
QString strandText(const QString& bases, QChar sugar, QChar linkage)
{
    QString text;
    for (const QChar base : bases)
        text += QString(sugar) + base + linkage;
    return text.chopped(1);
}

Molecule modified(const QString& text, const QString& modification, qsizetype count)
{
    return naturalFactory().modifyMolecule(*strand(text), modification, static_cast<int>(count));
}

RC_GTEST_PROP(OligoReaderLaws, ReversedStrandHasTheSameComposition, ())
{
    const QString bases = anyText(u"ACGTUQ"_s, 1);
    QString reversed = bases;
    std::reverse(reversed.begin(), reversed.end());
    RC_ASSERT(isAlike(*strand(bases), *strand(reversed)));
}

RC_GTEST_PROP(OligoReaderLaws, LigationGainsALinkageAndLosesWater, ())
{
    const QString one = anyText(u"ACGTU"_s, 1);
    const QString other = anyText(u"ACGTU"_s, 1);
    const Molecule expected =
        *strand(one) + *strand(other) + molecule(u"HPO3"_s) - molecule(u"H2O"_s);
    RC_ASSERT(isAlike(*strand(one + other), expected));
}

RC_GTEST_PROP(OligoReaderLaws, PhosphorothioateHasASulphurInPlaceOfAnOxygen, ())
{
    const QString bases = anyText(u"ACGTU"_s, 1);
    RC_ASSERT(isAlike(*strand(strandText(bases, u'd', u'*')),
                      modified(strandText(bases, u'd', u'.'), u"S1O-1"_s, bases.size() - 1)));
}

RC_GTEST_PROP(OligoReaderLaws, MethylOnEachSugarAddsAMethyleneEach, ())
{
    const QString bases = anyText(u"ACGU"_s, 1);
    RC_ASSERT(isAlike(*strand(strandText(bases, u'm', u'.')),
                      modified(strandText(bases, u'r', u'.'), u"C1H2"_s, bases.size())));
}

RC_GTEST_PROP(OligoReaderLaws, RnaHasAnOxygenMoreInEachSugarThanDna, ())
{
    const QString bases = anyText(u"ACGU"_s, 1);
    RC_ASSERT(isAlike(*strand(strandText(bases, u'r', u'.')),
                      modified(strandText(bases, u'd', u'.'), u"O1"_s, bases.size())));
}

RC_GTEST_PROP(OligoReaderLaws, PhosphateAtTheFivePrimeEndAddsALinkage, ())
{
    const QString bases = anyText(u"ACGTU"_s, 1);
    RC_ASSERT(isAlike(*strand(u'{' + bases), modified(u'[' + bases, u"HPO3"_s, 1)));
}

RC_GTEST_PROP(OligoReaderLaws, EachFivePrimeTruncationLosesItsNucleotide, ())
{
    const QString text = strandText(anyText(u"ACGTU"_s, 2), u'd', u'*');
    const Nucleotides nucleotides = parse(text).nucleotides;
    const auto rungs = ladder(text, static_cast<int>(nucleotides.size()), 0);
    RC_ASSERT(rungs.size() == nucleotides.size() + 1);
    for (qsizetype i = 0; i < nucleotides.size(); ++i)
        RC_ASSERT(isAlike(*rungs[i], *rungs[i + 1] + *nucleotides[i]));
}

RC_GTEST_PROP(OligoReaderLaws, TextIsValidExactlyWhenItCanBeRead, ())
{
    const QString text = anyText(u"[{ACGTrdm+f*.-1 x]}"_s);
    const Parsed parsed = parse(text);
    RC_ASSERT(naturalFactory().isValidOligoSequence(text) == parsed.isValid);
    RC_ASSERT(parsed.isValid || parsed.nucleotides.isEmpty());
}

const QStringList plainKeys = u"A B C a [ ] { } * . + 1 7 AB %2 é"_s.split(u' ');
const QStringList oddKeys =
    u"- ^ \\ a-c z-a !-~ ^A \\d \\w \\S \\Q \\E \\c 😀 \\x{41} \\x{4 $ \\] [:alpha:] \x01-z && | ( )"_s
        .split(u' ') +
    QStringList({u"A B"_s, u" "_s, QChar(0xd800), QChar(u'\0')});

/// Fills the five alphabets with keys of both kinds; one in six dictionaries may be left empty.
void addRandomKeys(OpenFactory* factory, std::mt19937& random)
{
    const bool isOdd = draw(2, random) == 0;
    for (const auto type : {ChemicalFactory::FivePrimeTerminalBlock, ChemicalFactory::RiboseBlock,
                            ChemicalFactory::NucleobaseBlock, ChemicalFactory::PhosphateBlock,
                            ChemicalFactory::ThreePrimeTerminalBlock}) {
        for (qsizetype i = draw(4, random) + (draw(6, random) > 0 ? 1 : 0); i > 0; --i) {
            const QString key =
                isOdd && draw(3, random) == 0 ? anyOf(oddKeys, random) : anyOf(plainKeys, random);
            factory->setBuildingBlock(type, key, u"name of "_s + key, u"C3H5N0.5"_s);
        }
    }
}

QString randomText(const OpenFactory& factory, std::mt19937& random)
{
    QString characters = u"12.+-A"_s;
    for (const auto& dictionary : factory.buildingBlocks)
        characters += dictionary.keys().join(QString());
    QString text;
    for (qsizetype length = draw(9, random); length > 0; --length)
        text += anyOf(characters, random);
    switch (draw(40, random)) {
    case 0:
        return text + u'\n';
    case 1:
        return text.insert(text.size() / 2, u'\n');
    case 2:
        return text + QChar(0xdc00);
    case 3:
        return u"😀"_s + text;
    case 4:
        return text + u'é';
    default:
        return text;
    }
}

TEST(OligoReader, AgreesWithTheExpressionsForRandomDictionaries)
{
    std::mt19937 random(testSeed(20261121));
    constexpr int dictionaryCount = 2500;
    constexpr int textsEach = 50;
    int accepted = 0;
    for (int i = 0; i < dictionaryCount; ++i) {
        OpenFactory factory(i % 3 ? u" "_s : QString()); // mostly without dictionaries
        addRandomKeys(&factory, random);
        const ByExpressions expected(factory);
        for (int j = 0; j < textsEach; ++j) {
            const QString text = randomText(factory, random);
            const Parsed oracle = expected.parse(text);
            expectSameReading(parse(factory, text), oracle);
            if (!text.contains(u',')) {
                EXPECT_EQ(factory.isValidOligoSequence(text), oracle.isValid);
            }
            ASSERT_FALSE(HasFailure()) << text.toStdString() << "\n"
                                       << factory.generateFullOligoRegex().pattern().toStdString();
            accepted += oracle.isValid;
        }
    }
    EXPECT_GT(accepted, 10000);
    EXPECT_LT(accepted, dictionaryCount * textsEach - 10000);
}

TEST(OligoReader, AgreesWithTheExpressionsForAllShortTexts)
{
    const ByExpressions expected(naturalFactory());
    const int compared = forAllTexts(u"[]rA+1.*\n"_s, 5, [&expected](const QString& text) {
        expectSameReading(parse(text), expected.parse(text));
    });
    EXPECT_EQ(compared, 1 + 9 + 81 + 729 + 6561 + 59049);
}

} // namespace
