#include "OpenFactory.h"
#include "TestPrinters.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <array>
#include <vector>

using namespace Qt::StringLiterals;

namespace {

using chem::AminoAcid;
using chem::ChemicalFactory;
using chem::FragmentationSite;
using chem::FragmentType;
using chem::Molecule;
using chem::MoleculeComplex;
using chem::NamedMolecule;

using AminoAcids = QList<QSharedPointer<const AminoAcid>>;
using Counts = QMap<QString, double>;

const OpenFactory& naturalFactory()
{
    static const OpenFactory factory;
    return factory;
}

AminoAcids parse(const ChemicalFactory& factory, const QString& sequence)
{
    AminoAcids aminoAcids;
    NamedMolecule nTerminal;
    NamedMolecule cTerminal;
    factory.parseAminoAcidSequence(sequence, &aminoAcids, &nTerminal, &cTerminal);
    return aminoAcids;
}

QString codesOf(const AminoAcids& aminoAcids)
{
    QString codes;
    for (const auto& aminoAcid : aminoAcids)
        codes += aminoAcid->code.isEmpty() ? u"?"_s : aminoAcid->code;
    return codes;
}

void expectSameMolecule(const Molecule& actual, const Molecule& expected)
{
    EXPECT_EQ(actual.monoMass(), expected.monoMass());
    EXPECT_EQ(actual.averageMass(), expected.averageMass());
    EXPECT_EQ(actual.formula().elementCountMap(), expected.formula().elementCountMap());
}

void expectNothing(const NamedMolecule& residue)
{
    EXPECT_EQ(residue.monoMass(), 0.0);
    EXPECT_EQ(residue.averageMass(), 0.0);
    EXPECT_TRUE(residue.formula().isEmpty());
    EXPECT_TRUE(residue.code.isEmpty());
    EXPECT_TRUE(residue.name.isEmpty());
}

// Reading residues.

TEST(PeptideSequence, GivesOneAminoAcidForEachCharacterInOrder)
{
    EXPECT_EQ(codesOf(parse(naturalFactory(), u"DRVYIHPF"_s)), u"DRVYIHPF"_s);
}

TEST(PeptideSequence, AminoAcidHoldsMoleculeCodeAndNameOfItsEntry)
{
    const auto& entries = naturalFactory().buildingBlocks[ChemicalFactory::AminoAcidBlock];
    ASSERT_EQ(entries.size(), 20);
    for (const NamedMolecule& entry : entries) {
        SCOPED_TRACE(entry.code.toStdString());
        const AminoAcids aminoAcids = parse(naturalFactory(), entry.code);
        ASSERT_EQ(aminoAcids.size(), 1);
        expectSameMolecule(*aminoAcids.first(), entry);
        EXPECT_EQ(aminoAcids.first()->code, entry.code);
        EXPECT_EQ(aminoAcids.first()->name, entry.name);
    }
}

TEST(PeptideSequence, EveryAminoAcidIsItsOwnObject)
{
    const AminoAcids aminoAcids = parse(naturalFactory(), u"GG"_s);
    ASSERT_EQ(aminoAcids.size(), 2);
    EXPECT_NE(aminoAcids[0], aminoAcids[1]);
}

TEST(PeptideSequence, UnknownLetterIsResidueOfNoMass)
{
    for (const QString& letter :
         {u"B"_s, u"J"_s, u"O"_s, u"U"_s, u"X"_s, u"Z"_s, u"g"_s, u"a"_s, u" "_s, u"\t"_s, u"1"_s,
          u"/"_s, u","_s, u"-"_s, u"["_s, QString(QChar(0)), u"Ä"_s, u"Α"_s, u"Ａ"_s}) {
        SCOPED_TRACE(letter.toStdString());
        const AminoAcids aminoAcids = parse(naturalFactory(), letter);
        ASSERT_EQ(aminoAcids.size(), 1);
        expectNothing(*aminoAcids.first());
    }
}

TEST(PeptideSequence, CharacterOutsideThe16BitRangeIsTwoResidues)
{
    EXPECT_EQ(codesOf(parse(naturalFactory(), u"G\U0001F9EAA"_s)), u"G??A"_s);
    EXPECT_EQ(naturalFactory().constructLinearPeptideComplex(u"\U0001F9EA"_s)->residues.size(), 4);
}

TEST(PeptideSequence, NothingIsTrimmedFoldedOrSplit)
{
    EXPECT_EQ(codesOf(parse(naturalFactory(), u" Ga\n/A "_s)), u"?G???A?"_s);
}

TEST(PeptideSequence, AppendsToWhatTheListHolds)
{
    AminoAcids aminoAcids;
    NamedMolecule nTerminal;
    NamedMolecule cTerminal;
    naturalFactory().parseAminoAcidSequence(u"GA"_s, &aminoAcids, &nTerminal, &cTerminal);
    const auto first = aminoAcids.first();
    naturalFactory().parseAminoAcidSequence(u"KR"_s, &aminoAcids, &nTerminal, &cTerminal);
    EXPECT_EQ(codesOf(aminoAcids), u"GAKR"_s);
    EXPECT_EQ(aminoAcids.first(), first);
}

TEST(PeptideSequence, ReservesRoomForTheText)
{
    EXPECT_GE(parse(naturalFactory(), QString(1000, u'G')).capacity(), 1000);
    EXPECT_LT(parse(naturalFactory(), QString(1000, u'G')).capacity(), 1100);
}

// Room for each text alone would move the whole list at every call.
TEST(PeptideSequence, ManyTextsInOneListSeldomMoveIt)
{
    AminoAcids aminoAcids;
    NamedMolecule nTerminal;
    NamedMolecule cTerminal;
    int moves = 0;
    for (int i = 0; i < 2000; ++i) {
        const qsizetype before = aminoAcids.capacity();
        naturalFactory().parseAminoAcidSequence(u"G"_s, &aminoAcids, &nTerminal, &cTerminal);
        moves += aminoAcids.capacity() == before ? 0 : 1;
    }
    EXPECT_EQ(aminoAcids.size(), 2000);
    EXPECT_LT(moves, 30);
}

TEST(PeptideSequence, OverwritesBothTerminiWithTheStandardOnes)
{
    AminoAcids aminoAcids;
    NamedMolecule nTerminal(naturalFactory().formyl, u"old name"_s, u"old code"_s);
    NamedMolecule cTerminal = nTerminal;
    naturalFactory().parseAminoAcidSequence(QString(), &aminoAcids, &nTerminal, &cTerminal);
    expectSameMolecule(nTerminal, naturalFactory().hydrogen);
    EXPECT_EQ(nTerminal.name, u"NTerm"_s);
    EXPECT_EQ(nTerminal.code, u"H-"_s);
    expectSameMolecule(cTerminal, naturalFactory().hydroxyl);
    EXPECT_EQ(cTerminal.name, u"CTerm"_s);
    EXPECT_EQ(cTerminal.code, u"-OH"_s);
    EXPECT_TRUE(aminoAcids.isEmpty());
}

TEST(PeptideSequence, TextMayLieInEitherOfTheOutputs)
{
    for (QString NamedMolecule::*field : {&NamedMolecule::name, &NamedMolecule::code}) {
        for (const bool isLeft : {true, false}) {
            NamedMolecule nTerminal;
            NamedMolecule cTerminal;
            QString& own = (isLeft ? nTerminal : cTerminal).*field;
            own = u"GA"_s.repeated(2);
            AminoAcids aminoAcids;
            naturalFactory().parseAminoAcidSequence(own, &aminoAcids, &nTerminal, &cTerminal);
            EXPECT_EQ(codesOf(aminoAcids), u"GAGA"_s);
            EXPECT_EQ(nTerminal.code, u"H-"_s);
            EXPECT_EQ(cTerminal.code, u"-OH"_s);
        }
    }
}

TEST(PeptideSequence, ChainDelimeterIsASlashThatTheReadersDoNotKnow)
{
    EXPECT_EQ(ChemicalFactory::ChainDelimeter, u'/');
    const AminoAcids aminoAcids = parse(naturalFactory(), QString(ChemicalFactory::ChainDelimeter));
    ASSERT_EQ(aminoAcids.size(), 1);
    expectNothing(*aminoAcids.first());
}

// Dictionaries.

TEST(PeptideSequence, ReadsAnEntryThatACallerAdds)
{
    OpenFactory factory;
    factory.setBuildingBlock(ChemicalFactory::AminoAcidBlock, u"U"_s, u"Selenocysteine"_s,
                             u"C3H5NOSe"_s);
    factory.setBuildingBlock(ChemicalFactory::AminoAcidBlock, u"Ω"_s, u"last"_s, u"C2"_s);
    const AminoAcids aminoAcids = parse(factory, u"UΩ"_s);
    ASSERT_EQ(codesOf(aminoAcids), u"UΩ"_s);
    EXPECT_EQ(aminoAcids[0]->name, u"Selenocysteine"_s);
    EXPECT_EQ(aminoAcids[0]->formula().elementCountMap(),
              (Counts{{u"C"_s, 3}, {u"H"_s, 5}, {u"N"_s, 1}, {u"O"_s, 1}, {u"Se"_s, 1}}));
    EXPECT_EQ(aminoAcids[1]->monoMass(), 24.0);
    EXPECT_EQ(factory.constructLinearPeptideComplex(u"Ω"_s)->residues[1]->monoMass(), 24.0);
}

TEST(PeptideSequence, ReadsAnEntryThatACallerReplaces)
{
    OpenFactory factory;
    factory.setBuildingBlock(ChemicalFactory::AminoAcidBlock, u"H"_s, u"Histidine"_s, u"C1"_s);
    EXPECT_EQ(parse(factory, u"H"_s).first()->name, u"Histidine"_s);
    EXPECT_EQ(parse(factory, u"H"_s).first()->monoMass(), 12.0);
}

TEST(PeptideSequence, NoTextReachesAKeyOfSeveralCharacters)
{
    OpenFactory factory;
    factory.setBuildingBlock(ChemicalFactory::AminoAcidBlock, u"Orn"_s, u"Ornithine"_s,
                             u"C5H10N2O"_s);
    EXPECT_EQ(codesOf(parse(factory, u"Orn"_s)), u"???"_s);
}

TEST(PeptideSequence, TerminalDictionariesPlayNoPart)
{
    OpenFactory factory;
    for (const auto type :
         {ChemicalFactory::NTerminalBlock, ChemicalFactory::CTerminalBlock,
          ChemicalFactory::ProteinNTerminalBlock, ChemicalFactory::ProteinCTerminalBlock}) {
        for (const QString& code : {u"H-"_s, u"-OH"_s, u"NTerm"_s, u"CTerm"_s, u"x"_s})
            factory.setBuildingBlock(type, code, u"other"_s, u"C9"_s);
    }
    EXPECT_EQ(factory.constructLinearPeptideComplex(u"x"_s)->formula().toString(), u"H2O"_s);
}

TEST(PeptideSequence, CopyOfAFactoryReadsItsOwnDictionary)
{
    const OpenFactory original;
    OpenFactory copy = original;
    copy.setBuildingBlock(ChemicalFactory::AminoAcidBlock, u"G"_s, u"other"_s, u"C1"_s);
    EXPECT_EQ(parse(copy, u"G"_s).first()->name, u"other"_s);
    EXPECT_EQ(parse(original, u"G"_s).first()->name, u"Glycine"_s);
}

// A configuration that cannot be read leaves a factory without dictionaries and constants.
TEST(PeptideSequence, WithoutADictionaryEveryLetterIsAResidueOfNoMass)
{
    const OpenFactory factory(u"unreadable"_s);
    ASSERT_TRUE(factory.buildingBlocks.isEmpty());
    const AminoAcids aminoAcids = parse(factory, u"GA"_s);
    ASSERT_EQ(aminoAcids.size(), 2);
    expectNothing(*aminoAcids[0]);
    expectNothing(*aminoAcids[1]);

    const auto complex = factory.constructLinearPeptideComplex(u"GA"_s);
    ASSERT_EQ(complex->residues.size(), 4);
    EXPECT_EQ(complex->sites[1].size(), 10);
    EXPECT_EQ(complex->residues[0]->code, u"H-"_s);
    EXPECT_EQ(complex->monoMass(), 0.0);
}

// Complexes.

TEST(PeptideComplex, FormulaOfTheTotal)
{
    const std::array<std::pair<QString, QString>, 7> totals{{
        {u""_s, u"H2O"_s},
        {u"GA"_s, u"C5H10N2O3"_s},
        {u"ga"_s, u"H2O"_s},
        {u"A A"_s, u"C6H12N2O3"_s},
        {u"A/G"_s, u"C5H10N2O3"_s},
        {u"M"_s, u"C5H11NO2S"_s},
        {u"DRVYIHPF"_s, u"C50H71N13O12"_s}, // angiotensin II
    }};
    for (const auto& [sequence, formula] : totals) {
        SCOPED_TRACE(sequence.toStdString());
        const auto complex = naturalFactory().constructLinearPeptideComplex(sequence);
        EXPECT_EQ(complex->formula().elementCountMap(),
                  ChemicalFactory::parseChemicalFormula(formula).elementCountMap());
        EXPECT_EQ(complex->residues.size(), sequence.size() + 2);
    }
}

// Angiotensin II: published monoisotopic mass 1045.5345, average mass 1046.18.
TEST(PeptideComplex, MassesOfAngiotensin)
{
    const auto complex = naturalFactory().constructLinearPeptideComplex(u"DRVYIHPF"_s);
    EXPECT_NEAR(complex->monoMass(), 1045.5345, 1e-4);
    EXPECT_NEAR(complex->averageMass(), 1046.18, 1e-2);
}

TEST(PeptideComplex, LowerCaseLettersKeepTheirPlacesAndSites)
{
    const auto complex = naturalFactory().constructLinearPeptideComplex(u"ga"_s);
    ASSERT_EQ(complex->residues.size(), 4);
    expectNothing(*complex->residues[1]);
    expectNothing(*complex->residues[2]);
    EXPECT_EQ(complex->sites[1].size(), 10);
    EXPECT_EQ(complex->sites[2].size(), 10);
}

TEST(PeptideComplex, BlankInTheMiddleIsAResidue)
{
    const auto complex = naturalFactory().constructLinearPeptideComplex(u"A A"_s);
    ASSERT_EQ(complex->residues.size(), 5);
    EXPECT_EQ(complex->residues[1]->code, u"A"_s);
    expectNothing(*complex->residues[2]);
    EXPECT_EQ(complex->residues[3]->code, u"A"_s);
}

TEST(PeptideComplex, TerminalsStandAtBothEnds)
{
    const auto complex = naturalFactory().constructLinearPeptideComplex(u"GA"_s);
    const auto& left = *complex->residues.first();
    const auto& right = *complex->residues.last();
    expectSameMolecule(left, naturalFactory().hydrogen);
    EXPECT_EQ(left.name, u"NTerm"_s);
    EXPECT_EQ(left.code, u"H-"_s);
    EXPECT_EQ(left.position, 0);
    expectSameMolecule(right, naturalFactory().hydroxyl);
    EXPECT_EQ(right.name, u"CTerm"_s);
    EXPECT_EQ(right.code, u"-OH"_s);
    EXPECT_EQ(right.position, 3);
}

TEST(PeptideComplex, MonomersCarryTheLabelsOfTheDictionary)
{
    const auto complex = naturalFactory().constructLinearPeptideComplex(u"KG"_s);
    EXPECT_EQ(complex->residues[1]->code, u"K"_s);
    EXPECT_EQ(complex->residues[1]->name, u"Lysine"_s);
    EXPECT_EQ(complex->residues[2]->code, u"G"_s);
    EXPECT_EQ(complex->residues[2]->name, u"Glycine"_s);
}

TEST(PeptideComplex, TextsOfTheComplexAreNull)
{
    const auto complex = naturalFactory().constructLinearPeptideComplex(u"GA"_s);
    EXPECT_TRUE(complex->code.isNull());
    EXPECT_TRUE(complex->name.isNull());
}

struct ExpectedSite
{
    FragmentType type;
    Molecule gained;
    Molecule lost;
    Counts change;
};

std::vector<ExpectedSite> expectedSites()
{
    const OpenFactory& f = naturalFactory();
    const Molecule nothing;
    const QString c = u"C"_s;
    const QString h = u"H"_s;
    const QString n = u"N"_s;
    const QString o = u"O"_s;
    return {
        {FragmentType::B, nothing, f.hydrogen, {{h, -1}}},
        {FragmentType::Y, f.hydrogen, nothing, {{h, 1}}},
        {FragmentType::A, nothing, f.formyl, {{c, -1}, {h, -1}, {o, -1}}},
        {FragmentType::Adot, f.hydrogen, f.formyl, {{c, -1}, {h, 0}, {o, -1}}},
        {FragmentType::C, f.amine, nothing, {{h, 2}, {n, 1}}},
        {FragmentType::Cdot, f.ammonia, nothing, {{h, 3}, {n, 1}}},
        {FragmentType::X, f.formyl, f.hydrogenPair, {{c, 1}, {h, -1}, {o, 1}}},
        {FragmentType::Xdot, f.formyl, f.hydrogen, {{c, 1}, {h, 0}, {o, 1}}},
        {FragmentType::Z, nothing, f.amine, {{h, -2}, {n, -1}}},
        {FragmentType::Zdot, f.hydrogen, f.amine, {{h, -1}, {n, -1}}},
    };
}

TEST(PeptideComplex, SitesOfAPosition)
{
    const auto complex = naturalFactory().constructLinearPeptideComplex(u"G"_s);
    const QList<QSharedPointer<FragmentationSite>> sites = complex->sites[1];
    const std::vector<ExpectedSite> expected = expectedSites();
    ASSERT_EQ(sites.size(), 10);
    for (std::size_t i = 0; i < expected.size(); ++i) {
        SCOPED_TRACE(i);
        const FragmentationSite& site = *sites[static_cast<qsizetype>(i)];
        EXPECT_EQ(site.type, expected[i].type);
        EXPECT_EQ(site.delta.formula().elementCountMap(), expected[i].change);
        EXPECT_EQ(site.delta.monoMass(),
                  expected[i].gained.monoMass() - expected[i].lost.monoMass());
        EXPECT_EQ(site.delta.averageMass(),
                  expected[i].gained.averageMass() - expected[i].lost.averageMass());
        expectSameMolecule(site.lost, expected[i].lost);
    }
}

TEST(PeptideComplex, SitesFollowTheIsotopesOfTheFactory)
{
    const OpenFactory factory(u"C13:1"_s); // carbon 13 alone
    const auto complex = factory.constructLinearPeptideComplex(u"G"_s);
    EXPECT_EQ(complex->sites[1][2]->delta.monoMass(), 0.0 - factory.formyl.monoMass());
    EXPECT_NEAR(factory.formyl.monoMass() - naturalFactory().formyl.monoMass(), 1.003355, 1e-6);
}

TEST(PeptideComplex, EveryPositionHasAllTenSites)
{
    const auto complex = naturalFactory().constructLinearPeptideComplex(u"PG?PxP"_s);
    ASSERT_EQ(complex->sites.size(), 8);
    for (int position = 1; position <= 6; ++position) {
        EXPECT_EQ(complex->sites[position].size(), 10);
        EXPECT_EQ(complex->sites[position], complex->sites[1]);
    }
    EXPECT_TRUE(complex->sites.first().isEmpty());
    EXPECT_TRUE(complex->sites.last().isEmpty());
}

TEST(PeptideComplex, IsNeverNull)
{
    EXPECT_FALSE(naturalFactory().constructLinearPeptideComplex(QString()).isNull());
    EXPECT_FALSE(naturalFactory().constructLinearPeptideComplex(u"???"_s).isNull());
}

TEST(PeptideComplex, MegabytesAreLaidOut)
{
    const QString text = u"ACDEFGHIKL"_s.repeated(100000);
    const auto complex = naturalFactory().constructLinearPeptideComplex(text);
    EXPECT_EQ(complex->residues.size(), 1000002);
    EXPECT_EQ(complex->residues.last()->position, 1000001);
}

// Totals to the last bit: the library adds in a flat list and as plain numbers, the expectation
// with the operators of the molecules, terminals first.

QString peptideText(const std::vector<int>& choices)
{
    static const QString letters = u"ARNDCQEGHILKMFPSTWYVXgw /1é"_s;
    QString text;
    for (const int choice : choices)
        text += letters[choice % letters.size()];
    return text;
}

rc::Gen<std::vector<int>> anyChoices()
{
    return rc::gen::container<std::vector<int>>(rc::gen::inRange(0, 27 * 4));
}

RC_GTEST_PROP(PeptideComplexProperty, TotalIsTheSumInOrderToTheLastBit, ())
{
    const QString text = peptideText(*anyChoices());
    const OpenFactory& factory = naturalFactory();
    Molecule total = factory.hydrogen + factory.hydroxyl;
    const AminoAcids aminoAcids = parse(factory, text);
    for (const auto& aminoAcid : aminoAcids)
        total += *aminoAcid;

    const auto complex = factory.constructLinearPeptideComplex(text);
    RC_ASSERT(complex->monoMass() == total.monoMass());
    RC_ASSERT(complex->averageMass() == total.averageMass());
    RC_ASSERT(complex->formula().elementCountMap() == total.formula().elementCountMap());
}

RC_GTEST_PROP(PeptideComplexProperty, BothReadersSeeTheSameResidues, ())
{
    const QString text = peptideText(*anyChoices());
    const AminoAcids aminoAcids = parse(naturalFactory(), text);
    const auto complex = naturalFactory().constructLinearPeptideComplex(text);
    const auto entries = naturalFactory().buildingBlocks.value(ChemicalFactory::AminoAcidBlock);
    RC_ASSERT(aminoAcids.size() == text.size());
    RC_ASSERT(complex->residues.size() == text.size() + 2);
    for (qsizetype i = 0; i < text.size(); ++i) {
        const NamedMolecule expected = entries.value(QString(text[i]));
        for (const NamedMolecule& residue :
             {NamedMolecule(*aminoAcids[i]), NamedMolecule(*complex->residues[i + 1])}) {
            RC_ASSERT(residue.code == expected.code);
            RC_ASSERT(residue.name == expected.name);
            RC_ASSERT(residue.monoMass() == expected.monoMass());
            RC_ASSERT(residue.averageMass() == expected.averageMass());
        }
    }
}

RC_GTEST_PROP(PeptideComplexProperty, JoiningTwoPeptidesLosesOneWater, ())
{
    const QString left = peptideText(*anyChoices());
    const QString right = peptideText(*anyChoices());
    const OpenFactory& factory = naturalFactory();
    const Molecule joined = *factory.constructLinearPeptideComplex(left + right) + factory.water;
    const Molecule apart = *factory.constructLinearPeptideComplex(left) +
                           *factory.constructLinearPeptideComplex(right);
    RC_ASSERT(joined.formula().elementCountMap() == apart.formula().elementCountMap());
}

} // namespace
