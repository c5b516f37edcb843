#include "Differences.h"
#include "SumOfParts.h"
#include "TestFormulas.h"
#include "TestPrinters.h"
#include <ChemicalModel.h>

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

using namespace Qt::StringLiterals;

namespace {

using chem::Chain;
using chem::Link;
using chem::Modification;
using chem::Molecule;
using chem::MoleculeEntity;
using chem::MoleculeType;
using fields::differences;

const chem::ChemicalFactory* factory()
{
    return chem::defaultChemicalFactory().data();
}

QStringList codesOf(const Chain& chain)
{
    QStringList codes;
    for (const MoleculeEntity& residue : chain.residues())
        codes.append(residue.code());
    return codes;
}

TEST(StructuredBuilders, PeptideChainHoldsTerminiAndAminoAcids)
{
    const Chain chain = chem::constructPeptideChain(u"name"_s, u"code"_s, u"GxA"_s, factory());
    EXPECT_EQ(chain.name(), u"name"_s);
    EXPECT_EQ(chain.code(), u"code"_s);
    EXPECT_EQ(chain.type(), MoleculeType::Peptide);
    EXPECT_EQ(codesOf(chain), QStringList({u"H-"_s, u"G"_s, u""_s, u"A"_s, u"-OH"_s}));
    EXPECT_EQ(chain.residues()[0].type(), MoleculeType::Unknown);
    EXPECT_EQ(chain.residues()[0].name(), u"NTerm"_s);
    EXPECT_EQ(chain.residues()[1].type(), MoleculeType::AminoAcid);
    EXPECT_EQ(chain.residues()[1].name(), u"Glycine"_s);
    EXPECT_EQ(chain.residues()[4].name(), u"CTerm"_s);
    EXPECT_EQ(differences(chain.parentLocus(), chem::ParentChainLocus()), "");
}

TEST(StructuredBuilders, EmptyPeptideIsItsTermini)
{
    EXPECT_EQ(chem::constructPeptideChain(u""_s, u""_s, u""_s, factory()).residues().size(), 2);
}

TEST(StructuredBuilders, OligonucleotideChainHoldsThreePartsForEachNucleotide)
{
    const Chain chain = chem::constructOligoNucleotideChain(u"n"_s, u"c"_s, u"[rA*T]"_s, factory());
    EXPECT_EQ(chain.type(), MoleculeType::OligoNucleotide);
    EXPECT_EQ(codesOf(chain),
              QStringList({u"]"_s, u"r"_s, u"A"_s, u"*"_s, u""_s, u"T"_s, u""_s, u"]"_s}));
    EXPECT_EQ(chain.residues()[1].name(), u"2'-hydroxy (RNA)"_s);
    EXPECT_EQ(chain.residues()[2].name(), u"Adenine"_s);
    EXPECT_EQ(chain.residues()[6].averageMass(),
              0.0); // the last phosphate takes up a place all the same
    EXPECT_EQ(chain.residues()[0].name(), u"5'-OH"_s);
    EXPECT_EQ(chain.residues()[7].name(), u"3'-OH"_s);
    EXPECT_EQ(differences(chain.parentLocus(), chem::ParentChainLocus()), "");
}

TEST(StructuredBuilders, RefusedOligonucleotideTextGivesTheDefaultEnds)
{
    const Chain chain = chem::constructOligoNucleotideChain(u"n"_s, u"c"_s, u"A C"_s, factory());
    ASSERT_EQ(chain.residues().size(), 2);
    EXPECT_EQ(chain.residues()[0].name(), u"5Prime"_s);
    EXPECT_EQ(chain.residues()[1].name(), u"3Prime"_s);
}

TEST(StructuredBuilders, OligonucleotideIsOneChainWithItsLabels)
{
    const MoleculeEntity strand =
        chem::constructOligoNucleotide(u"n"_s, u"c"_s, u"AT"_s, factory());
    EXPECT_EQ(strand.type(), MoleculeType::OligoNucleotide);
    EXPECT_EQ(strand.name(), u"n"_s);
    EXPECT_EQ(strand.code(), u"c"_s);
    ASSERT_EQ(strand.chains().size(), 1);
    EXPECT_EQ(strand.chains()[0].name(), u"n"_s);
    EXPECT_EQ(strand.chains()[0].code(), u"c"_s);
    EXPECT_EQ(strand.formula().toString(), u"C20H26N7O10P"_s);
    EXPECT_TRUE(strand.links().isEmpty());
    EXPECT_TRUE(strand.modifications().isEmpty());
}

TEST(StructuredBuilders, MoleculesHoldWhatWasGivenAndItsSum)
{
    const Chain chain(u"A"_s, u"a"_s, {1.5}, MoleculeType::Sugar, {u"l"_s, 1, 2, 3});
    chem::StructuredMolecule expected;
    expected.chains = {chain, chain}; // equal names are kept apart
    expected.modifications = {Modification(1.0, {{0, 0}}), Modification(2.0, {}), Modification()};
    expected.links = {Link(3.0, {}), Link(-4.0, {}), Link()};
    expected.averageMass = 5.0;
    expected.monoMass = 5.0;
    expected.name = u"n"_s;
    for (const chem::ChemicalFactory* any : {factory(), {}}) {
        expected.type = MoleculeType::Protein;
        expected.code = QString();
        EXPECT_EQ(differences(chem::constructProteinFromChains(u"n"_s, expected.chains,
                                                               expected.modifications,
                                                               expected.links, any),
                              MoleculeEntity(expected)),
                  "");
    }
    expected.type = MoleculeType::Sugar;
    expected.code = u"c"_s;
    EXPECT_EQ(differences(chem::constructStructuredMolecule(u"n"_s, u"c"_s, expected.chains,
                                                            expected.modifications, expected.links,
                                                            MoleculeType::Sugar),
                          MoleculeEntity(expected)),
              "");
}

TEST(StructuredBuilders, NothingHasNoMass)
{
    EXPECT_EQ(differences(chem::constructStructuredMolecule(QString(), QString(), {}, {}, {},
                                                            MoleculeType::Unknown),
                          MoleculeEntity(nullptr)),
              "");
}

TEST(StructuredBuilders, PlacesOutsideAreAcceptedAndCountOnce)
{
    const Modification outside(5.5, {{9, 9}, {-1, -1}});
    const MoleculeEntity molecule = chem::constructStructuredMolecule(
        u""_s, u""_s, {}, {outside}, {Link(2.25, {{7, 7}, {8, 8}})}, MoleculeType::Protein);
    EXPECT_EQ(molecule.averageMass(), 7.75);
    EXPECT_EQ(molecule.modifications().size(), 1);
    EXPECT_EQ(molecule.links().size(), 1);
}

MoleculeEntity anyEntity()
{
    const double average = *rc::gen::inRange(-1000000, 1000000) / 7001.0;
    const double mono = *rc::gen::inRange(-1000000, 1000000) / 7003.0;
    const double count = *rc::gen::inRange(-50, 50) / 3.0;
    const QString symbol = *rc::gen::element(u"C"_s, u"H"_s, u"N"_s, u"O"_s);
    return Molecule(formulaWith({{symbol, count}}), average == 0.0 ? 1.0 : average,
                    mono == 0.0 ? 1.0 : mono);
}

QList<MoleculeEntity> anyEntities()
{
    QList<MoleculeEntity> entities;
    const int count = *rc::gen::inRange(0, 8);
    for (int i = 0; i < count; ++i)
        entities.append(anyEntity());
    return entities;
}

RC_GTEST_PROP(BuilderLaws, TotalsAreSummedInTheirFixedOrder, ())
{
    QList<Chain> chains;
    const int chainCount = *rc::gen::inRange(0, 4);
    for (int i = 0; i < chainCount; ++i)
        chains.append(Chain(QString(), QString(), anyEntities(), MoleculeType::Peptide, {}));
    QList<Link> links;
    for (const MoleculeEntity& entity : anyEntities())
        links.append(Link(entity, {}));
    QList<Modification> modifications;
    for (const MoleculeEntity& entity : anyEntities())
        modifications.append(Modification(entity, {}));

    const MoleculeEntity built = chem::constructStructuredMolecule(
        QString(), QString(), chains, modifications, links, MoleculeType::Protein);
    const Sum sum = sumOfParts(chains, links, modifications);
    RC_ASSERT(built.formula().elementCountMap() == sum.counts);
    if (sum.averageMass != 0.0)
        RC_ASSERT(built.averageMass() == sum.averageMass);
    if (sum.monoMass != 0.0)
        RC_ASSERT(built.monoMass() == sum.monoMass);
}

RC_GTEST_PROP(BuilderLaws, ChainAndComplexOfAPeptideWeighTheSame, ())
{
    const QString letters = u"ACDEFGHIKLMNPQRSTVWY"_s;
    QString sequence;
    for (const int index : *rc::gen::container<std::vector<int>>(rc::gen::inRange(0, 20)))
        sequence += letters[index];
    const MoleculeEntity peptide = chem::constructStructuredMolecule(
        QString(), QString(),
        {chem::constructPeptideChain(QString(), QString(), sequence, factory())}, {}, {},
        MoleculeType::Peptide);
    const auto complex = factory()->constructLinearPeptideComplex(sequence);
    RC_ASSERT(peptide.formula().toString() == complex->formula().toString());
    RC_ASSERT(std::abs(peptide.monoMass() - complex->monoMass()) < 1e-9 * complex->monoMass());
}

TEST(StructuredBuilders, RefusedOligonucleotideTextStillGivesALabelledChain)
{
    const Chain chain = chem::constructOligoNucleotideChain(u"n"_s, u"c"_s, u"A C"_s, factory());
    EXPECT_EQ(chain.name(), u"n"_s);
    EXPECT_EQ(chain.code(), u"c"_s);
    EXPECT_EQ(chain.type(), MoleculeType::OligoNucleotide);
    const MoleculeEntity strand =
        chem::constructOligoNucleotide(u"n"_s, u"c"_s, u"A C"_s, factory());
    EXPECT_EQ(strand.formula().toString(), u"H2O"_s);
}

TEST(StructuredBuilders, PartsWithoutAMassCountWithTheOneOfTheirFormula)
{
    const Molecule water = factory()->constructMolecule(u"H2O"_s);
    const Molecule blank(water.formula(), 0.0, 0.0);
    const Chain chain(QString(), QString(), {blank}, MoleculeType::Peptide, {});
    const MoleculeEntity molecule =
        chem::constructStructuredMolecule(QString(), QString(), {chain}, {Modification(blank, {})},
                                          {Link(blank, {})}, MoleculeType::Peptide);
    EXPECT_EQ(molecule.averageMass(),
              water.averageMass() + water.averageMass() + water.averageMass());
    EXPECT_EQ(molecule.monoMass(), water.monoMass() + water.monoMass() + water.monoMass());
    EXPECT_EQ(molecule.formula().toString(), u"H6O3"_s);
}

TEST(StructuredBuilders, ChainsKeepTheResiduesOfTheirBuilding)
{
    const auto own = chem::ChemicalFactory::construct(QString());
    const Chain chain = chem::constructPeptideChain(u"n"_s, u"c"_s, u"G"_s, own.data());
    own->setBuildingBlock(chem::ChemicalFactory::AminoAcidBlock, u"G"_s, u"other"_s, u"C1"_s);
    EXPECT_EQ(chain.residues()[1].name(), u"Glycine"_s);
    EXPECT_EQ(chem::constructPeptideChain(u"n"_s, u"c"_s, u"G"_s, own.data()).residues()[1].name(),
              u"other"_s);
}

} // namespace
