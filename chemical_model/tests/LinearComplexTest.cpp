#include "TestFormulas.h"
#include "TestPrinters.h"
#include <ChemicalFactory.h>

#include <gtest/gtest.h>

#include <type_traits>

using namespace Qt::StringLiterals;

namespace {

using chem::Molecule;
using chem::NamedMolecule;

Molecule molecule(const QString& symbol, double count, double averageMass, double monoMass)
{
    return Molecule(formulaWith({{symbol, count}}), averageMass, monoMass);
}

TEST(LinearComplex, AminoAcidIsItsResidue)
{
    const chem::AminoAcid glycine(
        NamedMolecule(molecule(u"C"_s, 2, 57.1, 57.0), u"Glycine"_s, u"G"_s));
    EXPECT_EQ(glycine.name, u"Glycine"_s);
    EXPECT_EQ(glycine.code, u"G"_s);
    EXPECT_EQ(glycine.averageMass(), 57.1);
}

TEST(LinearComplex, NucleotideIsTheSumOfItsParts)
{
    const NamedMolecule base(molecule(u"C"_s, 1, 0.1, 1.1), u"base"_s, u"B"_s);
    const NamedMolecule ribose(molecule(u"H"_s, 2, 0.2, 2.2), u"ribose"_s, u"r"_s);
    const NamedMolecule phosphate(molecule(u"P"_s, 3, 0.3, 3.3), u"phosphate"_s, u"*"_s);
    const chem::Nucleotide nucleotide(base, ribose, phosphate, u"name"_s, u"code"_s);
    EXPECT_EQ(nucleotide.averageMass(), 0.1 + (0.2 + 0.3)); // ribose and phosphate are joined first
    EXPECT_EQ(nucleotide.monoMass(), 1.1 + (2.2 + 3.3));
    EXPECT_EQ(nucleotide.formula().toString(), u"C1H2P3"_s);
    EXPECT_EQ(nucleotide.name, u"name"_s);
    EXPECT_EQ(nucleotide.code, u"code"_s);
    EXPECT_EQ(nucleotide.nucleobase.name, u"base"_s);
    EXPECT_EQ(nucleotide.ribose.name, u"ribose"_s);
    EXPECT_EQ(nucleotide.phosphate.code, u"*"_s);
}

TEST(LinearComplex, ResidueKnowsItsPlace)
{
    const NamedMolecule named(molecule(u"C"_s, 1, 12.0, 12.0), u"name"_s, u"code"_s);
    const chem::ComplexResidue residue(named, 7);
    EXPECT_EQ(residue.position, 7);
    EXPECT_EQ(residue.code, u"code"_s);
    const chem::ComplexResidue fromParts(molecule(u"C"_s, 1, 12.0, 12.0), u"name"_s, u"code"_s, 8);
    EXPECT_EQ(fromParts.position, 8);
    EXPECT_EQ(fromParts.name, u"name"_s);
    EXPECT_EQ(fromParts.code, u"code"_s);
}

TEST(LinearComplex, SiteGainsAndLosesFieldByField)
{
    const Molecule gained = molecule(u"C"_s, 1, 0.3, 0.7);
    const Molecule lost = molecule(u"H"_s, 2, 0.1, 0.2);
    const chem::FragmentationSite site(chem::FragmentType::Y, gained, lost);
    EXPECT_EQ(site.type, chem::FragmentType::Y);
    EXPECT_EQ(site.delta.averageMass(), 0.3 - 0.1);
    EXPECT_EQ(site.delta.monoMass(), 0.7 - 0.2);
    EXPECT_EQ(site.delta.formula().toString(), u"C1H(-2)"_s);
    EXPECT_EQ(site.lost.averageMass(), 0.1);
}

TEST(LinearComplex, ComplexHasNoTextsOfItsOwn)
{
    const auto complex = chem::defaultChemicalFactory()->constructLinearPeptideComplex(u"GA"_s);
    EXPECT_TRUE(complex->code.isNull());
    EXPECT_TRUE(complex->name.isNull());
}

TEST(LinearComplex, ResiduesStandAtTheirIndices)
{
    const auto complex = chem::defaultChemicalFactory()->constructLinearPeptideComplex(u"GASP"_s);
    ASSERT_EQ(complex->residues.size(), 6);
    ASSERT_EQ(complex->sites.size(), 6);
    for (int i = 0; i < 6; ++i)
        EXPECT_EQ(complex->residues[i]->position, i);
    EXPECT_TRUE(complex->sites.first().isEmpty());
    EXPECT_TRUE(complex->sites.last().isEmpty());
}

TEST(LinearComplex, LaterChangesOfTheDictionaryDoNotReachAComplex)
{
    const auto factory = chem::ChemicalFactory::construct(QString());
    const auto complex = factory->constructLinearPeptideComplex(u"G"_s);
    factory->setBuildingBlock(chem::ChemicalFactory::AminoAcidBlock, u"G"_s, u"Other"_s, u"C1"_s);
    EXPECT_EQ(complex->residues[1]->name, u"Glycine"_s);
}

TEST(LinearComplex, NothingInItIsPolymorphic)
{
    static_assert(!std::is_polymorphic_v<chem::AminoAcid>);
    static_assert(!std::is_polymorphic_v<chem::Nucleotide>);
    static_assert(!std::is_polymorphic_v<chem::ComplexResidue>);
    static_assert(!std::is_polymorphic_v<chem::FragmentationSite>);
    static_assert(!std::is_polymorphic_v<chem::MoleculeComplex>);
    static_assert(!std::is_polymorphic_v<chem::Fragment>);
}

} // namespace
