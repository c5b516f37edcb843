#include "Backbone.h"

#include "IonLists.h"
#include "RefusedTexts.h"
#include "TestPrinters.h"
#include <zel_chemical_model/ChemicalFactory.h>

#include <gtest/gtest.h>

#include <cmath>

using namespace Qt::StringLiterals;

namespace ions {

namespace {

BackboneChain chainOf(const QString& sequence)
{
    return Backbone::peptide(sequence, residues())->chains()[0];
}

TEST(Backbone, PeptidesWeighWhatTheTableSays)
{
    const Backbone peptide = Backbone::peptide(u"DRVYIHPF", residues()).value();
    EXPECT_NEAR(peptide.masses().monoisotopic, 1045.53451, 1e-4);
    EXPECT_NEAR(peptide.masses().average, residues().peptide(u"DRVYIHPF")->average, 1e-9);
    EXPECT_EQ(peptide.chains()[0].letters, u"DRVYIHPF"_s);
}

/// Against sums in a wider type.
TEST(Backbone, LongChainsAndTheirIonsAreSummedAsWellAsShortOnes)
{
    const QString all = u"ACDEFGHIKLMNPQRSTVWY"_s;
    const Backbone protein = Backbone::peptide(all.repeated(1750), residues()).value();
    const FragmentIons ions = ionsOf(protein, IonOptions());
    const std::vector<Masses>& units = protein.chains()[0].units;
    const std::size_t cuts = units.size() - 1;
    long double left = 0.0L;
    long double right = residues().water().monoisotopic;
    for (std::size_t i = 0; i < cuts; ++i) {
        left += units[i].monoisotopic;
        right += units[cuts - i].monoisotopic;
        ASSERT_LT(std::abs(double(ions.mz()[i] - left - protein.breaks().proton)), 2e-9);
        ASSERT_LT(std::abs(double(ions.mz()[cuts + i] - right - protein.breaks().proton)), 2e-9);
    }
    const long double whole = right + units[0].monoisotopic;
    EXPECT_LT(std::abs(double(protein.masses().monoisotopic - whole)), 1e-9);
}

TEST(Backbone, LettersWithoutMassAreRefused)
{
    const std::vector<RefusedText> texts = {
        {u""_s, 0, u"letter"_s}, {u"PEPTXDE"_s, 4, u"letter"_s}, {u"peptide"_s, 0, u"letter"_s}};
    expectRefused([](const QString& text) { return Backbone::peptide(text, residues()); }, texts);
    Backbone backbone = Backbone::peptide(u"GG", residues()).value();
    EXPECT_TRUE(backbone.assignPeptide(u"G*G", residues()).has_value());
    EXPECT_TRUE(backbone.chains().empty());
    EXPECT_FALSE(backbone.assignPeptide(u"AAA", residues()).has_value());
    EXPECT_NEAR(backbone.masses().monoisotopic, residues().peptide(u"AAA")->monoisotopic, 1e-9);
}

TEST(Backbone, AnObjectThatIsUsedAgainKeepsNothing)
{
    BackboneChain chain = chainOf(u"GGGG"_s);
    chain.leftGroup = {10.0, 10.0};
    chain.hasRightEnd = false;
    chain.labile.push_back({{5.0, 5.0}, {}});
    chain.open.push_back({{{1.0, 1.0}, {}}, {0, 1}});
    chain.groups.push_back({0, {}});
    Backbone backbone =
        Backbone::ofChains({chain, chain}, {{0, 0, 1, 0, {3.0, 3.0}}}, residues().breaks()).value();
    EXPECT_FALSE(backbone.assignPeptide(u"GGGG", residues()).has_value());
    EXPECT_EQ(backbone.masses(), residues().peptide(u"GGGG").value());
    EXPECT_EQ(backbone.chains().size(), 1U);
    EXPECT_TRUE(backbone.links().empty());
    EXPECT_TRUE(backbone.chains()[0].groups.empty());
}

TEST(Backbone, OligonucleotidesWeighWhatTheFirstLibrarySays)
{
    const auto factory = chem::defaultChemicalFactory();
    for (const QString& text : {u"ACGT"_s, u"A"_s, u"rArC*rGrU"_s, u"{ACG}"_s, u"AC*"_s,
                                u"eT*eQ*eA"_s, u"+A+C"_s, u"A**C"_s, u"[AC]"_s}) {
        const auto complex = factory->constructLinearOligoComplex(text);
        const Parsed<Backbone> backbone = Backbone::oligonucleotide(text, *factory);
        ASSERT_TRUE(backbone.hasValue()) << text.toStdString();
        EXPECT_NEAR(backbone->masses().monoisotopic, complex->monoMass(), 1e-9)
            << text.toStdString();
        EXPECT_NEAR(backbone->masses().average, complex->averageMass(), 1e-9);
        EXPECT_EQ(backbone->chains()[0].polymer, Polymer::Oligonucleotide);
    }
}

TEST(Backbone, OtherOligonucleotideTextIsRefused)
{
    const auto factory = chem::defaultChemicalFactory();
    const std::vector<RefusedText> texts = {
        {u""_s, 0, u"nucleotide"_s},     {u"ACX"_s, 2, u"nucleotide"_s},
        {u"AC A"_s, 2, u"nucleotide"_s}, {u"ACd"_s, 3, u"nucleotide"_s},
        {u"300"_s, 0, u"base"_s},        {u"A300C"_s, 1, u"base"_s},
    };
    expectRefused([&](const QString& text) { return Backbone::oligonucleotide(text, *factory); },
                  texts);
}

TEST(Backbone, PiecesWithoutEndsWeighThatMuchLess)
{
    BackboneChain piece = chainOf(u"GGG"_s);
    piece.hasLeftEnd = false;
    const auto without = Backbone::ofChains({piece}, {}, residues().breaks());
    const double whole = residues().peptide(u"GGG")->monoisotopic;
    EXPECT_NEAR(without->masses().monoisotopic, whole - 1.00782503, 1e-6);
    piece.hasRightEnd = false;
    const auto bare = Backbone::ofChains({piece}, {}, residues().breaks());
    EXPECT_NEAR(bare->masses().monoisotopic, 3 * 57.0214637, 1e-6);
}

TEST(Backbone, WhatIsNoMoleculeIsRefusedWithChainAndResidue)
{
    const BreakMasses breaks = residues().breaks();
    const BackboneChain sound = chainOf(u"GGG"_s);
    BackboneChain odd = sound;
    odd.letters.chop(1);
    EXPECT_EQ(Backbone::ofChains({sound, odd}, {}, breaks).error().chain, 1);
    odd = sound;
    odd.linkages.push_back({});
    EXPECT_FALSE(Backbone::ofChains({odd}, {}, breaks).hasValue());
    EXPECT_FALSE(Backbone::ofChains({BackboneChain()}, {}, breaks).hasValue());
    for (const std::vector<qsizetype>& units : {std::vector<qsizetype>{}, {-1}, {3}, {2, 1}}) {
        odd = sound;
        odd.open.push_back({{}, units});
        EXPECT_FALSE(Backbone::ofChains({odd}, {}, breaks).hasValue());
    }
    odd = sound;
    odd.groups.push_back({3, {}});
    EXPECT_EQ(Backbone::ofChains({odd}, {}, breaks).error().residue, 3);
    for (const BackboneLink& link :
         {BackboneLink{0, 3, 0, 0, {}}, BackboneLink{0, 0, 1, 0, {}}, BackboneLink{-1, 0, 0, 0, {}},
          BackboneLink{0, 0, 0, -1, {}}}) {
        EXPECT_FALSE(Backbone::ofChains({sound}, {link}, breaks).hasValue());
    }
    const std::vector<BackboneChain> many(256, sound);
    EXPECT_FALSE(Backbone::ofChains(many, {}, breaks).hasValue());
    const std::vector<BackboneLink> links(1001);
    EXPECT_FALSE(Backbone::ofChains({sound}, links, breaks).hasValue());
}

} // namespace

} // namespace ions
