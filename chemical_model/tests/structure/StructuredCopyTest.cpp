#include "structure/StructuredCopy.h"

#include "SmallMolecules.h"
#include "TestPrinters.h"
#include <ChemicalModel.h>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

using namespace smallMolecules;

/// A molecule with something in each list, and with totals that are not those of its parts.
chem::MoleculeEntity fullMolecule()
{
    chem::StructuredMolecule molecule;
    molecule.formula = formula(u"C2"_s);
    molecule.type = chem::MoleculeType::Protein;
    molecule.monoMass = 3.0;
    molecule.averageMass = 5.0;
    molecule.chains = {chainOf({startTerminal(), aminoAcid(u'A'), endTerminal()})};
    molecule.links = {chem::Link(group(u"H-2"_s, -2.0), {{0, 0}, {0, 1}})};
    molecule.modifications = {chem::Modification(group(u"O"_s, 16.0), {{0, 1}, {0, 2}})};
    molecule.name = u"name"_s;
    molecule.code = u"code"_s;
    molecule.transformations = {
        chem::TransformationEntity(chem::Modify(chem::MoleculeEntity(1.0)), 2.0)};
    return molecule;
}

void expectPartsOf(const chem::MoleculeEntity& molecule, const chem::StructuredMolecule& copy)
{
    EXPECT_EQ(copy.type, molecule.type());
    EXPECT_EQ(copy.chains, molecule.chains());
    EXPECT_EQ(copy.links, molecule.links());
    EXPECT_EQ(copy.modifications, molecule.modifications());
    EXPECT_EQ(copy.name, molecule.name());
    EXPECT_EQ(copy.code, molecule.code());
    EXPECT_EQ(copy.description, molecule.description());
    EXPECT_EQ(copy.transformations.size(), molecule.transformations().size());
}

TEST(StructuredCopy, HoldsThePartsAndTheTotals)
{
    const chem::MoleculeEntity molecule = fullMolecule();
    const chem::StructuredMolecule copy = chem::structuredCopy(molecule);
    expectPartsOf(molecule, copy);
    EXPECT_EQ(copy.formula.toString(), u"C2"_s);
    EXPECT_EQ(copy.averageMass, 5.0);
    EXPECT_EQ(copy.monoMass, 3.0);
}

TEST(StructuredCopy, WithoutTotalsHoldsThePartsAlone)
{
    const chem::MoleculeEntity molecule = fullMolecule();
    const chem::StructuredMolecule copy = chem::copyWithoutTotals(molecule);
    expectPartsOf(molecule, copy);
    EXPECT_TRUE(copy.formula.isEmpty());
    EXPECT_EQ(copy.averageMass, 0.0);
    EXPECT_EQ(copy.monoMass, 0.0);
}

TEST(StructuredCopy, AminoAcidGivesWhatItAnswersAndEmptyLists)
{
    const chem::AminoAcid alanine = aminoAcid(u'A');
    const chem::StructuredMolecule copy = chem::structuredCopy(alanine);
    expectPartsOf(alanine, copy);
    EXPECT_EQ(copy.type, chem::MoleculeType::AminoAcid);
    EXPECT_EQ(copy.code, u"A"_s);
    EXPECT_EQ(copy.averageMass, alanine.averageMass());
    EXPECT_TRUE(copy.chains.isEmpty());
    EXPECT_TRUE(copy.transformations.isEmpty());
}

} // namespace
