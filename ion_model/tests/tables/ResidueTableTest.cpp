#include "ResidueTable.h"

#include "Backbone.h"
#include "Digest.h"
#include "TestPrinters.h"
#include <zel_chemical_model/ChemicalFactory.h>

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <cmath>
#include <string>

using namespace Qt::StringLiterals;

namespace ions {

namespace {

/// Masses of published peptides, as calibration tables print them.
TEST(ResidueTable, PeptidesWeighTheirResiduesAndOneWater)
{
    const ResidueTable residues;
    EXPECT_NEAR(residues.peptide(u"DRVYIHPF")->monoisotopic, 1045.53451, 1e-4);
    EXPECT_NEAR(residues.peptide(u"YGGFL")->monoisotopic, 555.26930, 1e-4);
    EXPECT_NEAR(residues.peptide(u"RPPGFSPFR")->average, 1060.21, 0.01);
    EXPECT_EQ(residues.peptide(u"").value(), residues.water());
}

TEST(ResidueTable, PeptidesAgreeWithTheFirstLibrary)
{
    const ResidueTable residues;
    const auto factory = chem::defaultChemicalFactory();
    const QString all = u"ACDEFGHIKLMNPQRSTVWY"_s;
    for (const QString& text : {all, all.repeated(2), u"PEPTIDE"_s, u"G"_s}) {
        const auto complex = factory->constructLinearPeptideComplex(text);
        EXPECT_NEAR(residues.peptide(text)->monoisotopic, complex->monoMass(), 1e-9);
        EXPECT_NEAR(residues.peptide(text)->average, complex->averageMass(), 1e-9);
    }
}

/// Residue masses as textbooks print them.
TEST(ResidueTable, RareResiduesHaveFixedFormulas)
{
    const ResidueTable residues;
    EXPECT_NEAR(residues.residue(u'U').monoisotopic, 150.95364, 1e-4);
    EXPECT_NEAR(residues.residue(u'O').monoisotopic, 237.14773, 1e-4);
    EXPECT_EQ(residues.residue(u'J'), residues.residue(u'L'));
    EXPECT_EQ(residues.composition(u'U')->toString(), u"C3H5NOSe"_s);
    EXPECT_EQ(*residues.composition(u'J'), *residues.composition(u'I'));
}

TEST(ResidueTable, OtherCharactersHaveNoMass)
{
    const ResidueTable residues;
    for (int c = 0; c < 0x10000; ++c) {
        const bool isResidue = c < 128 && u"ACDEFGHIJKLMNOPQRSTUVWY"_s.contains(QChar(c));
        ASSERT_EQ(std::isnan(residues.residue(char16_t(c)).average), !isResidue) << c;
        ASSERT_EQ(std::isnan(residues.residue(char16_t(c)).monoisotopic), !isResidue) << c;
        ASSERT_EQ(residues.composition(char16_t(c)) != nullptr, isResidue) << c;
    }
}

TEST(ResidueTable, AnUnknownLetterIsRefusedAtItsPlace)
{
    const ResidueTable residues;
    for (const QChar letter : u"BZX*-a \u00c5\uffff"_s) {
        const QString sequence = u"PEP"_s + letter + u"TIDEX"_s;
        const Parsed<Masses> masses = residues.peptide(sequence);
        ASSERT_FALSE(masses.hasValue());
        EXPECT_EQ(masses.error().position, 3);
    }
}

TEST(ResidueTable, AmbiguousLettersNameWhatTheyCanBe)
{
    const ResidueTable residues;
    EXPECT_EQ(residues.candidates(u'B'), u"DN"_s);
    EXPECT_EQ(residues.candidates(u'Z'), u"EQ"_s);
    EXPECT_EQ(residues.candidates(u'J'), u"IL"_s);
    EXPECT_EQ(residues.candidates(u'X').size(), 20);
    EXPECT_EQ(residues.candidates(u'K'), u"K"_s);
    EXPECT_EQ(residues.candidates(u'U'), u"U"_s);
    EXPECT_EQ(residues.candidates(u'*'), u""_s);
}

TEST(ResidueTable, ACallersResiduesAndIsotopesAreTaken)
{
    const auto factory = chem::ChemicalFactory::construct(u"N15:1.0"_s);
    factory->setBuildingBlock(chem::ChemicalFactory::AminoAcidBlock, u"X"_s, u"ornithine"_s,
                              u"C5H10N2O"_s);
    factory->setBuildingBlock(chem::ChemicalFactory::AminoAcidBlock, u"B"_s, u"half"_s, u"C0.5"_s);
    const ResidueTable residues(*factory);
    EXPECT_NEAR(residues.residue(u'G').monoisotopic, 57.02146 + 0.99703, 1e-4);
    EXPECT_NEAR(residues.residue(u'X').monoisotopic, 114.07931 + 2 * 0.99703, 1e-4);
    EXPECT_EQ(residues.composition(u'X')->toString(), u"C5H10N2O"_s);
    EXPECT_EQ(residues.composition(u'B'), nullptr);
    EXPECT_FALSE(std::isnan(residues.residue(u'B').average));
}

/// A factory weighs what it knows of a formula and leaves out the rest without a word.
TEST(ResidueTable, ACallersResiduesOfUnknownAtomsHaveNoMass)
{
    const auto factory = chem::ChemicalFactory::construct(QString());
    const auto define = [&factory](const QString& letter, const QString& formula) {
        factory->setBuildingBlock(chem::ChemicalFactory::AminoAcidBlock, letter, u"own"_s, formula);
    };
    define(u"A"_s, u"C2Xy"_s);
    define(u"U"_s, u"C2Xy"_s); // no reason to take the usual formula
    define(u"J"_s, u"Xy"_s);
    define(u"X"_s, u"Og"_s);
    define(u"G"_s, u"C2E"_s); // electrons are no atoms
    define(u"*"_s, QString());
    const ResidueTable residues(*factory);
    for (const char16_t letter : u"AUJXG*"_s.toStdU16String()) {
        EXPECT_TRUE(std::isnan(residues.residue(letter).monoisotopic)) << int(letter);
        EXPECT_TRUE(std::isnan(residues.residue(letter).average)) << int(letter);
        EXPECT_EQ(residues.composition(letter), nullptr) << int(letter);
    }
    EXPECT_EQ(residues.peptide(u"KAK").error().position, 1);
    EXPECT_EQ(residues.candidates(u'A'), QString());
    EXPECT_EQ(residues.candidates(u'X').size(), 20);
}

TEST(ResidueTable, AmbiguousLettersThatACallerDefinesAreThemselves)
{
    const auto factory = chem::ChemicalFactory::construct(QString());
    for (const QString& letter : {u"B"_s, u"Z"_s, u"J"_s, u"X"_s})
        factory->setBuildingBlock(chem::ChemicalFactory::AminoAcidBlock, letter, u"own"_s,
                                  u"C5H10N2O"_s);
    const ResidueTable residues(*factory);
    for (const char16_t letter : {u'B', u'Z', u'J', u'X'}) {
        EXPECT_EQ(residues.composition(letter)->toString(), u"C5H10N2O"_s);
        EXPECT_EQ(residues.candidates(letter), QString(QChar(letter)));
    }
}

Composition formula(const QString& text)
{
    return Composition::read(text).value();
}

/// Lysine and arginine of heavy carbon and nitrogen, as cells take them up.
ResidueTable heavyResidues()
{
    ResidueTable residues;
    EXPECT_TRUE(residues.setResidue(u'K', formula(u"[13C]6H12[15N]2O"_s)));
    EXPECT_TRUE(residues.setResidue(u'R', formula(u"[13C]6H12[15N]4O"_s)));
    return residues;
}

/// The shifts of heavy lysine and arginine are those that search engines list.
TEST(ResidueTable, HeavyResiduesShiftTheMassesOfADigest)
{
    const Protease trypsin = Protease::named(u"Trypsin"_s).value();
    Digest light;
    light.cleave(u"AEKGGRLLV", trypsin, ResidueTable());
    Digest heavy;
    heavy.cleave(u"AEKGGRLLV", trypsin, heavyResidues());
    ASSERT_EQ(heavy.size(), 3U);
    EXPECT_NEAR(heavy.monoisotopic()[0] - light.monoisotopic()[0], 8.0142, 5e-5);
    EXPECT_NEAR(heavy.monoisotopic()[1] - light.monoisotopic()[1], 10.0083, 5e-5);
    EXPECT_EQ(heavy.monoisotopic()[2], light.monoisotopic()[2]);
}

TEST(ResidueTable, AResidueThatIsSetIsKnownToAll)
{
    const ResidueTable residues = heavyResidues();
    const double light = ResidueTable().peptide(u"AEK")->monoisotopic;
    EXPECT_NEAR(residues.peptide(u"AEK")->monoisotopic - light, 8.0142, 5e-5);
    const Backbone backbone = Backbone::peptide(u"AEK", residues).value();
    EXPECT_NEAR(backbone.masses().monoisotopic - light, 8.0142, 5e-5);
    EXPECT_EQ(residues.composition(u'K')->toString(), u"[13C6]H12[15N2]O"_s);
    EXPECT_EQ(residues.letterMasses()[u'K'], residues.residue(u'K'));
}

TEST(ResidueTable, CopiesKeepTheResiduesThatTheyHad)
{
    ResidueTable changed;
    const ResidueTable before = changed;
    const Composition* const composition = before.composition(u'K');
    EXPECT_TRUE(changed.setResidue(u'K', formula(u"C7H14N2O"_s)));
    EXPECT_EQ(composition, before.composition(u'K'));
    EXPECT_EQ(before.residue(u'K'), ResidueTable().residue(u'K'));
    const ResidueTable after = changed;
    EXPECT_TRUE(changed.setResidue(u'K', *composition));
    EXPECT_EQ(changed.residue(u'K'), before.residue(u'K'));
    EXPECT_EQ(after.composition(u'K')->toString(), u"C7H14N2O"_s);
    EXPECT_NEAR(after.peptide(u"K")->monoisotopic - before.peptide(u"K")->monoisotopic, 14.01565,
                1e-5);
}

TEST(ResidueTable, AnyLetterCanBeGivenAResidue)
{
    ResidueTable residues;
    for (const char16_t letter : {u'B', u'J', u'X', u'Z', u'k'}) {
        EXPECT_TRUE(residues.setResidue(letter, formula(u"C5H10N2O"_s)));
        EXPECT_NEAR(residues.residue(letter).monoisotopic, 114.07931, 1e-5);
        EXPECT_EQ(residues.candidates(letter), QString(QChar(letter)));
    }
    ResidueTable own;
    EXPECT_TRUE(own.setResidue(u'L', formula(u"[13C]6H11NO"_s)));
    EXPECT_EQ(own.residue(u'J'), ResidueTable().residue(u'J'));
}

TEST(ResidueTable, WhatCannotBeSetChangesNothing)
{
    ResidueTable residues;
    const Masses* const letters = residues.letterMasses().data();
    for (const char16_t character : u"*1 @[`{\u00c5\u212a"_s.toStdU16String())
        EXPECT_FALSE(residues.setResidue(character, formula(u"C5H10N2O"_s))) << int(character);
    EXPECT_FALSE(residues.setResidue(u'\0', formula(u"C5H10N2O"_s)));
    EXPECT_FALSE(residues.setResidue(u'K', Composition()));
    EXPECT_FALSE(residues.setResidue(u'K', formula(u"CHOg"_s)));
    EXPECT_EQ(residues.letterMasses().data(), letters);
    EXPECT_EQ(residues.residue(u'K'), ResidueTable().residue(u'K'));
}

TEST(ResidueTable, PeptidesAreMadeOfTheirResiduesAndOneWater)
{
    const ResidueTable residues;
    EXPECT_EQ(residues.composition(u"DRVYIHPF")->toString(), u"C50H71N13O12"_s); // angiotensin II
    EXPECT_EQ(residues.composition(u"")->toString(), u"H2O"_s);
    EXPECT_EQ(heavyResidues().composition(u"KGK")->toString(), u"C2[13C12]H29N[15N4]O4"_s);
}

RC_GTEST_PROP(ResidueTable, TheAtomsOfAPeptideWeighItsMasses, ())
{
    const ResidueTable residues;
    const auto letters = *rc::gen::container<std::string>(
        rc::gen::elementOf(std::string("ACDEFGHIJKLMNOPQRSTUVWY")));
    const QString sequence = QString::fromStdString(letters);
    const Masses masses = residues.atoms().weigh(residues.composition(sequence).value()).value();
    RC_ASSERT(std::abs(masses.monoisotopic - residues.peptide(sequence)->monoisotopic) < 1e-8);
    RC_ASSERT(std::abs(masses.average - residues.peptide(sequence)->average) < 1e-8);
}

TEST(ResidueTable, PeptidesOfUnknownAtomsAreRefusedAtTheirPlace)
{
    const auto factory = chem::ChemicalFactory::construct(QString());
    factory->setBuildingBlock(chem::ChemicalFactory::AminoAcidBlock, u"B"_s, u"half"_s,
                              u"C2.5H4"_s);
    ResidueTable residues(*factory);
    EXPECT_EQ(residues.composition(u"PEXTIBE").error().position, 2);
    EXPECT_EQ(residues.composition(u"PEXTIBE").error(), residues.peptide(u"PEXTIBE").error());
    EXPECT_EQ(residues.composition(u"PEPTIBEX").error().position, 5);
    EXPECT_TRUE(residues.peptide(u"PEPTIBE").hasValue());
    EXPECT_TRUE(residues.setResidue(u'X', formula(u"C2147483647"_s)));
    EXPECT_TRUE(residues.composition(u"X").hasValue());
    EXPECT_FALSE(residues.composition(u"XX").hasValue());
}

/// Against sums in a wider type: what the letters weigh is taken as it is.
TEST(ResidueTable, SumsAreAsGoodAsTheySay)
{
    const ResidueTable residues;
    const auto error = [&residues](const QString& sequence) {
        long double sum = residues.water().monoisotopic;
        for (const QChar letter : sequence)
            sum += residues.residue(letter.unicode()).monoisotopic;
        return double(std::abs(sum - residues.peptide(sequence)->monoisotopic));
    };
    const QString all = u"ACDEFGHIKLMNPQRSTVWY"_s;
    for (const QChar letter : all)
        EXPECT_LT(error(QString(250, letter)), 1e-9);
    EXPECT_LT(error(all.repeated(35000 / 20)), 1e-9);
    EXPECT_LT(error(QString(5000, u'W')), 1e-9);
    EXPECT_EQ(residues.peptide(QString(QString(300, u'W') + u'X')).error().position, 300);
}

TEST(ResidueTable, PartsOfNucleotidesAreThoseOfTheFactory)
{
    const ResidueTable residues;
    EXPECT_EQ(residues.bases().size(), 6U);
    EXPECT_EQ(residues.sugars().size(), 6U);
    EXPECT_EQ(residues.linkages().size(), 2U);
    EXPECT_EQ(residues.bases()[0].code, u"A"_s);
    EXPECT_EQ(residues.bases()[0].composition.toString(), u"C5H4N5"_s);
}

/// The masses stand in the table of the notation itself.
TEST(ResidueTable, MonosaccharidesWeighWhatTheirTableSays)
{
    const ResidueTable residues;
    EXPECT_EQ(residues.monosaccharides().size(), 24U);
    EXPECT_NEAR(residues.monosaccharide(u"Hex")->masses.monoisotopic, 162.052823418, 1e-6);
    EXPECT_NEAR(residues.monosaccharide(u"NeuAc")->masses.monoisotopic, 291.095416506, 1e-6);
    EXPECT_NEAR(residues.monosaccharide(u"en,aHex")->masses.monoisotopic, 158.02152329, 1e-6);
    EXPECT_EQ(residues.monosaccharide(u"hex"), nullptr);
    EXPECT_EQ(residues.monosaccharide(u""), nullptr);
}

} // namespace

} // namespace ions
