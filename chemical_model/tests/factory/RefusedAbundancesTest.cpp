#include <ChemicalModel.h>

#include <gtest/gtest.h>

#include <stdexcept>

using namespace Qt::StringLiterals;

namespace {

/// Gold has isotopes that are refused; no building block holds any, so the factory can be made.
QSharedPointer<const chem::ChemicalFactory> factoryWithoutGold()
{
    return chem::ChemicalFactory::construct(u"Au197:1.5"_s);
}

TEST(RefusedAbundances, ModificationThatGainsOrLosesTheElementThrows)
{
    const auto factory = factoryWithoutGold();
    const chem::Molecule water = factory->constructMolecule(u"H2O"_s);
    EXPECT_THROW(factory->modifyMolecule(water, u"Au"_s, 1), std::invalid_argument);
    EXPECT_THROW(factory->modifyMolecule(water, u"H-1Au-1"_s, 1), std::invalid_argument);
    EXPECT_THROW(factory->modifyMolecule(water, u"Au"_s, 0), std::invalid_argument);
    EXPECT_NO_THROW(factory->modifyMolecule(water, u"H-1"_s, 1));
}

TEST(RefusedAbundances, EstimatesOfBothMassesThrow)
{
    const auto factory = factoryWithoutGold();
    EXPECT_THROW(factory->moleculeBasedOnAverageMass(u"C5Au"_s, 200.0), std::invalid_argument);
    EXPECT_THROW(factory->moleculeBasedOnMonoMass(u"C5Au"_s, 200.0), std::invalid_argument);
    EXPECT_NO_THROW(factory->moleculeBasedOnAverageMass(u"C5"_s, 200.0));
    EXPECT_NO_THROW(factory->moleculeBasedOnMonoMass(u"C5"_s, 200.0));
}

TEST(RefusedAbundances, BuildingBlockThatIsRefusedLeavesTheFactoryAsItWas)
{
    const auto factory = chem::ChemicalFactory::construct(u"Au197:1.5"_s);
    const auto earlier = factory->constructLinearPeptideComplex(u"AG"_s);
    EXPECT_THROW(factory->setBuildingBlock(chem::ChemicalFactory::AminoAcidBlock, u"A"_s,
                                           u"Auranine"_s, u"C3Au"_s),
                 std::invalid_argument);
    const auto later = factory->constructLinearPeptideComplex(u"AG"_s);
    EXPECT_EQ(later->residues.at(1)->name, u"Alanine"_s);
    EXPECT_EQ(later->monoMass(), earlier->monoMass());
}

} // namespace
