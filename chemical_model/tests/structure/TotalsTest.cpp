#include "structure/Totals.h"

#include "ChemicalFactory.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

using chem::Molecule;

const Molecule& group()
{
    static const Molecule molecule(chem::ChemicalFactory::parseChemicalFormula(u"C2H4"_s), 28.5,
                                   28.25);
    return molecule;
}

void expectTotals(const Molecule& totals)
{
    EXPECT_EQ(totals.formula().elementCountMap(), group().formula().elementCountMap());
    EXPECT_EQ(totals.averageMass(), 28.5);
    EXPECT_EQ(totals.monoMass(), 28.25);
}

TEST(Totals, OfAnEntityAreWhatItAnswers)
{
    expectTotals(chem::totalsOf(chem::MoleculeEntity(group())));
    EXPECT_EQ(chem::totalsOf(chem::MoleculeEntity(12.5)).averageMass(), 12.5);
    EXPECT_TRUE(chem::totalsOf(chem::MoleculeEntity(12.5)).formula().isEmpty());
}

TEST(Totals, AreWrittenAndReadBackWithEachMassInItsPlace)
{
    chem::StructuredMolecule molecule;
    chem::writeTotals(group(), &molecule);
    EXPECT_EQ(molecule.averageMass, 28.5);
    EXPECT_EQ(molecule.monoMass, 28.25);
    expectTotals(chem::totalsOf(molecule));
}

} // namespace
