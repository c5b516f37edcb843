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

void expectDefaultLocus(const Chain& chain)
{
    EXPECT_TRUE(chain.parentLocus().label.isEmpty());
    EXPECT_EQ(chain.parentLocus().chain, 0);
    EXPECT_EQ(chain.parentLocus().start, 0);
    EXPECT_EQ(chain.parentLocus().end, 0);
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
    expectDefaultLocus(chain);
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
    expectDefaultLocus(chain);
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

TEST(StructuredBuilders, ProteinHasNoCodeAndNeedsNoFactory)
{
    const Chain chain = chem::constructPeptideChain(u"A"_s, u"A"_s, u"GA"_s, factory());
    const MoleculeEntity protein =
        chem::constructProteinFromChains(u"n"_s, {chain, chain}, {}, {}, nullptr);
    EXPECT_EQ(protein.type(), MoleculeType::Protein);
    EXPECT_EQ(protein.name(), u"n"_s);
    EXPECT_TRUE(protein.code().isEmpty());
    ASSERT_EQ(protein.chains().size(), 2); // equal names are kept apart
    EXPECT_EQ(protein.chains()[1].type(), MoleculeType::Peptide);
    EXPECT_TRUE(protein.transformations().isEmpty());
}

TEST(StructuredBuilders, NothingWeighsNothing)
{
    const MoleculeEntity none =
        chem::constructStructuredMolecule(u"n"_s, u"c"_s, {}, {}, {}, MoleculeType::Unknown);
    EXPECT_EQ(none.averageMass(), 0.0);
    EXPECT_EQ(none.monoMass(), 0.0);
    EXPECT_TRUE(none.formula().isEmpty());
    EXPECT_EQ(none.name(), u"n"_s);
    EXPECT_EQ(none.code(), u"c"_s);
    EXPECT_EQ(none.type(), MoleculeType::Unknown);
    EXPECT_TRUE(none.description().isEmpty());
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

    chem::ChemicalFormula formula;
    double average = 0.0;
    double mono = 0.0;
    for (const Chain& chain : chains) {
        chem::ChemicalFormula chainFormula;
        double chainAverage = 0.0;
        double chainMono = 0.0;
        for (const MoleculeEntity& residue : chain.residues())
            chainFormula += residue.formula();
        for (const MoleculeEntity& residue : chain.residues())
            chainAverage += residue.averageMass();
        for (const MoleculeEntity& residue : chain.residues())
            chainMono += residue.monoMass();
        formula += chainFormula;
        average += chainAverage;
        mono += chainMono;
    }
    for (const Link& link : links) {
        average += link.entity().averageMass();
        mono += link.entity().monoMass();
        formula += link.entity().formula();
    }
    for (const Modification& modification : modifications) {
        average += modification.averageMass();
        mono += modification.monoMass();
        formula += modification.formula();
    }

    const MoleculeEntity built = chem::constructStructuredMolecule(
        QString(), QString(), chains, modifications, links, MoleculeType::Protein);
    RC_ASSERT(built.formula().elementCountMap() == formula.elementCountMap());
    if (average != 0.0)
        RC_ASSERT(built.averageMass() == average);
    if (mono != 0.0)
        RC_ASSERT(built.monoMass() == mono);
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

TEST(StructuredBuilders, ProteinCountsItsModificationsAndLinks)
{
    const Chain chain(u"A"_s, QString(), {1.5, 2.5}, MoleculeType::Peptide, {});
    const MoleculeEntity protein = chem::constructProteinFromChains(
        u"n"_s, {chain}, {Modification(10.0, {{0, 1}})}, {Link(-2.0, {{0, 0}, {0, 1}})}, factory());
    EXPECT_EQ(protein.averageMass(), 12.0);
    EXPECT_EQ(protein.monoMass(), 12.0);
    ASSERT_EQ(protein.modifications().size(), 1);
    EXPECT_TRUE(protein.modifications()[0] == Modification(10.0, {{0, 1}}));
    ASSERT_EQ(protein.links().size(), 1);
    EXPECT_TRUE(protein.links()[0] == Link(-2.0, {{0, 0}, {0, 1}}));
    EXPECT_TRUE(protein.chains()[0] == chain);
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

TEST(StructuredBuilders, AllFieldsOfAMoleculeAreWhatWasGiven)
{
    const Chain chain(u"A"_s, u"a"_s, {1.5}, MoleculeType::Sugar, {u"l"_s, 1, 2, 3});
    const MoleculeEntity molecule = chem::constructStructuredMolecule(
        u"n"_s, u"c"_s, {chain, chain}, {Modification(1.0, {{0, 0}}), Modification(2.0, {})},
        {Link(3.0, {}), Link(4.0, {})}, MoleculeType::Sugar);
    EXPECT_EQ(molecule.type(), MoleculeType::Sugar);
    EXPECT_TRUE(molecule.chains() == QList<Chain>({chain, chain}));
    EXPECT_TRUE(molecule.modifications() ==
                QList<Modification>({Modification(1.0, {{0, 0}}), Modification(2.0, {})}));
    EXPECT_TRUE(molecule.links() == QList<Link>({Link(3.0, {}), Link(4.0, {})}));
    EXPECT_EQ(molecule.chains()[1].code(), u"a"_s);
    EXPECT_TRUE(molecule.transformations().isEmpty());
}

TEST(StructuredBuilders, BlankModificationsAndLinksAreKeptAndWeighNothing)
{
    const MoleculeEntity molecule = chem::constructStructuredMolecule(
        QString(), QString(), {}, {Modification()}, {Link()}, MoleculeType::Protein);
    EXPECT_EQ(molecule.averageMass(), 0.0);
    EXPECT_TRUE(molecule.formula().isEmpty());
    EXPECT_EQ(molecule.modifications().size(), 1);
    EXPECT_EQ(molecule.links().size(), 1);
    EXPECT_EQ(molecule.sequence(), u"[]"_s);
}

} // namespace
