#include "FragmentLists.h"
#include "RandomMolecules.h"
#include "ReferenceFigures.h"
#include "SameMolecules.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <vector>

using namespace Qt::StringLiterals;
using namespace randomMolecules;

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

void expectNothing(const NamedMolecule& residue)
{
    expectSame(residue, NamedMolecule());
}

// Reading residues.

TEST(PeptideReader, GivesOneAminoAcidForEachCharacterInOrder)
{
    EXPECT_EQ(codesOf(parse(naturalFactory(), u"DRVYIHPF"_s)), u"DRVYIHPF"_s);
}

TEST(PeptideReader, AminoAcidHoldsMoleculeCodeAndNameOfItsEntry)
{
    const auto& entries = naturalFactory().buildingBlocks[ChemicalFactory::AminoAcidBlock];
    ASSERT_EQ(entries.size(), 20);
    for (const NamedMolecule& entry : entries) {
        SCOPED_TRACE(entry.code.toStdString());
        const AminoAcids aminoAcids = parse(naturalFactory(), entry.code);
        ASSERT_EQ(aminoAcids.size(), 1);
        expectSame(*aminoAcids.first(), entry);
    }
}

TEST(PeptideReader, EveryAminoAcidIsItsOwnObject)
{
    const AminoAcids aminoAcids = parse(naturalFactory(), u"GG"_s);
    ASSERT_EQ(aminoAcids.size(), 2);
    EXPECT_NE(aminoAcids[0], aminoAcids[1]);
}

TEST(PeptideReader, UnknownLetterIsResidueOfNoMass)
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

TEST(PeptideReader, CharacterOutsideThe16BitRangeIsTwoResidues)
{
    EXPECT_EQ(codesOf(parse(naturalFactory(), u"G\U0001F9EAA"_s)), u"G??A"_s);
    EXPECT_EQ(naturalFactory().constructLinearPeptideComplex(u"\U0001F9EA"_s)->residues.size(), 4);
}

TEST(PeptideReader, NothingIsTrimmedFoldedOrSplit)
{
    EXPECT_EQ(codesOf(parse(naturalFactory(), u" Ga\n/A "_s)), u"?G???A?"_s);
}

TEST(PeptideReader, AppendsToWhatTheListHolds)
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

TEST(PeptideReader, OverwritesBothTerminiWithTheStandardOnes)
{
    AminoAcids aminoAcids;
    NamedMolecule nTerminal(naturalFactory().formyl, u"old name"_s, u"old code"_s);
    NamedMolecule cTerminal = nTerminal;
    naturalFactory().parseAminoAcidSequence(QString(), &aminoAcids, &nTerminal, &cTerminal);
    expectSame(nTerminal, NamedMolecule(naturalFactory().hydrogen, u"NTerm"_s, u"H-"_s));
    expectSame(cTerminal, NamedMolecule(naturalFactory().hydroxyl, u"CTerm"_s, u"-OH"_s));
    EXPECT_TRUE(aminoAcids.isEmpty());
}

// Dictionaries.

TEST(PeptideReader, ReadsAnEntryThatACallerAdds)
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

TEST(PeptideReader, NoTextReachesAKeyOfSeveralCharacters)
{
    OpenFactory factory;
    factory.setBuildingBlock(ChemicalFactory::AminoAcidBlock, u"Orn"_s, u"Ornithine"_s,
                             u"C5H10N2O"_s);
    EXPECT_EQ(codesOf(parse(factory, u"Orn"_s)), u"???"_s);
}

TEST(PeptideReader, TerminalDictionariesPlayNoPart)
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

// A configuration that cannot be read leaves a factory without dictionaries and constants.
TEST(PeptideReader, WithoutADictionaryEveryLetterIsAResidueOfNoMass)
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

TEST(PeptideReader, FormulaOfTheTotal)
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
TEST(PeptideReader, MassesOfAngiotensin)
{
    const auto complex = naturalFactory().constructLinearPeptideComplex(u"DRVYIHPF"_s);
    EXPECT_NEAR(complex->monoMass(), 1045.5345, 1e-4);
    EXPECT_NEAR(complex->averageMass(), 1046.18, 1e-2);
}

TEST(PeptideReader, TerminalsStandAtBothEnds)
{
    const auto complex = naturalFactory().constructLinearPeptideComplex(u"GA"_s);
    const auto& left = *complex->residues.first();
    const auto& right = *complex->residues.last();
    expectSame(left, NamedMolecule(naturalFactory().hydrogen, u"NTerm"_s, u"H-"_s));
    expectSame(right, NamedMolecule(naturalFactory().hydroxyl, u"CTerm"_s, u"-OH"_s));
    EXPECT_EQ(left.position, 0);
    EXPECT_EQ(right.position, 3);
}

TEST(PeptideReader, TextsOfTheComplexAreNull)
{
    const auto complex = naturalFactory().constructLinearPeptideComplex(u"GA"_s);
    EXPECT_TRUE(complex->code.isNull());
    EXPECT_TRUE(complex->name.isNull());
}

TEST(PeptideReader, ComplexOfNoMonomersHasTheTwoTerminalsAndNoSites)
{
    const auto complex = peptide(QString());
    EXPECT_EQ(complex->residues.size(), 2);
    ASSERT_EQ(complex->sites.size(), 2);
    EXPECT_TRUE(complex->sites.first().isEmpty());
    EXPECT_TRUE(complex->sites.last().isEmpty());
}

TEST(PeptideReader, ComplexDoesNotShareSitesOrResiduesWithAnotherOne)
{
    const auto first = peptide(u"G"_s);
    const auto second = peptide(u"G"_s);
    for (int i = 0; i < 10; ++i)
        EXPECT_NE(first->sites[1][i], second->sites[1][i]);
    for (int i = 0; i < 3; ++i)
        EXPECT_NE(first->residues[i], second->residues[i]);
}

TEST(PeptideReader, EqualMonomersAreSeparateResidues)
{
    const auto complex = peptide(u"GG"_s);
    EXPECT_NE(complex->residues[1], complex->residues[2]);
}

TEST(PeptideReader, ComplexStaysAsItIsWhenTheDictionaryChanges)
{
    const auto factory = ChemicalFactory::construct(QString());
    const auto complex = factory->constructLinearPeptideComplex(u"G"_s);
    const double monoMass = complex->residues[1]->monoMass();
    factory->setBuildingBlock(ChemicalFactory::AminoAcidBlock, u"G"_s, u"other"_s, u"C9"_s);
    EXPECT_EQ(complex->residues[1]->monoMass(), monoMass);
    EXPECT_EQ(complex->residues[1]->name, u"Glycine"_s);
}

TEST(PeptideReader, ResiduesAreNoEntriesOfTheDictionary)
{
    const auto factory = ChemicalFactory::construct(QString());
    const auto edited = factory->constructLinearPeptideComplex(u"G"_s);
    edited->residues[1]->code = u"X"_s;
    *edited->residues[1] += *edited->residues[1];
    const auto fresh = factory->constructLinearPeptideComplex(u"G"_s);
    EXPECT_EQ(fresh->residues[1]->code, u"G"_s);
    EXPECT_EQ(fresh->residues[1]->formula().toString(), u"C2H3NO"_s);
}

struct SiteOfPeptides
{
    FragmentType type;
    Molecule gained;
    Molecule lost;
    Counts change;
};

std::vector<SiteOfPeptides> sitesOfPeptides()
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

TEST(PeptideReader, SitesOfAPosition)
{
    const auto complex = naturalFactory().constructLinearPeptideComplex(u"G"_s);
    const QList<QSharedPointer<FragmentationSite>> sites = complex->sites[1];
    const std::vector<SiteOfPeptides> expected = sitesOfPeptides();
    ASSERT_EQ(sites.size(), 10);
    for (std::size_t i = 0; i < expected.size(); ++i) {
        SCOPED_TRACE(i);
        const FragmentationSite& site = *sites[static_cast<qsizetype>(i)];
        EXPECT_EQ(site.delta.formula().elementCountMap(), expected[i].change);
        expectSame(site, FragmentationSite(expected[i].type, expected[i].gained, expected[i].lost));
    }
}

TEST(PeptideReader, SitesFollowTheIsotopesOfTheFactory)
{
    const OpenFactory factory(u"C13:1"_s); // carbon 13 alone
    const auto complex = factory.constructLinearPeptideComplex(u"G"_s);
    EXPECT_EQ(complex->sites[1][2]->delta.monoMass(), 0.0 - factory.formyl.monoMass());
    EXPECT_NEAR(factory.formyl.monoMass() - naturalFactory().formyl.monoMass(), 1.003355, 1e-6);
}

TEST(PeptideReader, EveryPositionHasAllTenSites)
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

TEST(PeptideReader, MegabytesAreLaidOut)
{
    const QString text = u"ACDEFGHIKL"_s.repeated(100000);
    const auto complex = naturalFactory().constructLinearPeptideComplex(text);
    EXPECT_EQ(complex->residues.size(), 1000002);
    EXPECT_EQ(complex->residues.last()->position, 1000001);
}

TEST(PeptideReader, PeptidesAgreeWithOtherPrograms)
{
    const QJsonArray rows = referenceRows(u"peptides.json"_s);
    ASSERT_EQ(rows.size(), 110);
    for (const QJsonValue& row : rows) {
        SCOPED_TRACE(row[u"name"].toString().toStdString());
        expectFiguresOfChain(row, *peptide(row[u"sequence"].toString()));
    }
}

TEST(PeptideReader, PublishedPeptidesHaveTheirFormulas)
{
    int compared = 0;
    for (const QJsonValue& row : referenceRows(u"published.json"_s)) {
        const QString sequence = row[u"sequence"].toString();
        if (sequence.isEmpty())
            continue;
        ++compared;
        EXPECT_EQ(peptide(sequence)->formula().toString(),
                  molecule(row[u"formula"].toString()).formula().toString());
    }
    EXPECT_EQ(compared, 4);
}

// Laws. Totals are compared to the last bit: the library adds in a flat list and as plain numbers,
// the expectation with the operators of the molecules, terminals first.

QString anyPeptide()
{
    return anyText(u"ACDEFGHIKLMNPQRSTVWY"_s);
}

/// Letters of the dictionary, and characters that it does not have.
QString anyPeptideOrOther()
{
    return anyText(u"ARNDCQEGHILKMFPSTWYVXgw /1é"_s);
}

RC_GTEST_PROP(PeptideReaderLaws, TotalIsTheSumInOrderToTheLastBit, ())
{
    const QString text = anyPeptideOrOther();
    Molecule total = naturalFactory().hydrogen + naturalFactory().hydroxyl;
    const AminoAcids aminoAcids = parse(naturalFactory(), text);
    for (const auto& aminoAcid : aminoAcids)
        total += *aminoAcid;
    RC_ASSERT(isSame(*peptide(text), total));
}

RC_GTEST_PROP(PeptideReaderLaws, BothReadersSeeTheSameResidues, ())
{
    const QString text = anyPeptideOrOther();
    const AminoAcids aminoAcids = parse(naturalFactory(), text);
    const auto complex = naturalFactory().constructLinearPeptideComplex(text);
    const auto entries = naturalFactory().buildingBlocks.value(ChemicalFactory::AminoAcidBlock);
    RC_ASSERT(aminoAcids.size() == text.size());
    RC_ASSERT(complex->residues.size() == text.size() + 2);
    for (qsizetype i = 0; i < text.size(); ++i) {
        RC_ASSERT(complex->residues[i + 1]->position == i + 1);
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

RC_GTEST_PROP(PeptideReaderLaws, JoiningTwoPeptidesLosesOneWater, ())
{
    const QString left = anyPeptideOrOther();
    const QString right = anyPeptideOrOther();
    const Molecule apart = *peptide(left) + *peptide(right);
    RC_ASSERT(isAlike(*peptide(left + right) + naturalFactory().water, apart));
}

RC_GTEST_PROP(PeptideReaderLaws, ReversedPeptideWeighsTheSame, ())
{
    const QString sequence = anyPeptide();
    QString reversed = sequence;
    std::reverse(reversed.begin(), reversed.end());
    RC_ASSERT(isAlike(*peptide(sequence), *peptide(reversed)));
}

RC_GTEST_PROP(PeptideReaderLaws, LeucineAndIsoleucineCannotBeToldApart, ())
{
    const QString sequence = anyPeptide();
    const QString other = QString(sequence).replace(u'L', u'I');
    RC_ASSERT(isSame(*peptide(sequence), *peptide(other)));
}

RC_GTEST_PROP(PeptideReaderLaws, UnknownLettersAddNeitherMassNorAtoms, ())
{
    const QString known = anyPeptide();
    QString withUnknown = known;
    withUnknown.insert(*rc::gen::inRange<qsizetype>(0, known.size() + 1), u"xB?"_s);
    RC_ASSERT(isSame(*peptide(known), *peptide(withUnknown)));
}

} // namespace
