#include "AtomMasses.h"

#include "TestPrinters.h"
#include <zel_chemical_model/ChemicalFactory.h>

#include <gtest/gtest.h>

#include <cmath>

using namespace Qt::StringLiterals;

namespace ions {

namespace {

TEST(AtomMasses, ElementsWeighWhatTheFactorySays)
{
    const AtomMasses masses;
    const auto factory = chem::defaultChemicalFactory();
    for (const QString& text :
         {u"C6H12O6"_s, u"C254H377N65O75S6"_s, u"Se"_s, u"Pt2Cl4"_s, u"B12"_s}) {
        const chem::Molecule molecule = factory->constructMolecule(text);
        const Masses weighed = masses.weigh(formula(text)).value();
        EXPECT_NEAR(weighed.monoisotopic, molecule.monoMass(), 1e-9) << text.toStdString();
        EXPECT_NEAR(weighed.average, molecule.averageMass(), 1e-9) << text.toStdString();
    }
}

/// Masses of the atomic mass evaluation of 2020 and of older tables agree to these digits.
TEST(AtomMasses, StatedIsotopesWeighThemselvesInBothMasses)
{
    const AtomMasses masses;
    const std::vector<std::pair<Atom, double>> isotopes = {
        {{6, 12}, 12.0},       {{6, 13}, 13.0033548},  {{1, 2}, 2.0141018},
        {{7, 15}, 15.0001089}, {{8, 18}, 17.9991596},  {{1, 3}, 3.0160493},
        {{6, 14}, 14.0032420}, {{17, 37}, 36.9659026}, {{92, 235}, 235.0439301},
    };
    for (const auto& [atom, mass] : isotopes) {
        EXPECT_NEAR(masses.of(atom).monoisotopic, mass, 2e-6) << atom.massNumber;
        EXPECT_EQ(masses.of(atom).monoisotopic, masses.of(atom).average);
    }
}

TEST(AtomMasses, ALabelledFactoryLabelsTheElementsAlone)
{
    const AtomMasses labelled(*chem::ChemicalFactory::construct(u"C13:0.99 C12:0.01"_s));
    EXPECT_NEAR(labelled.of({6, 0}).monoisotopic, 13.0033548, 1e-6);
    EXPECT_NEAR(labelled.of({6, 0}).average, 0.99 * 13.0033548 + 0.01 * 12.0, 1e-6);
    EXPECT_EQ(labelled.of({6, 12}).average, 12.0);
    EXPECT_EQ(labelled.of({7, 0}), AtomMasses().of({7, 0}));
}

TEST(AtomMasses, IsotopesThatALabelledTableLeavesOutKeepTheirMass)
{
    const AtomMasses labelled(*chem::ChemicalFactory::construct(u"C13:1.0"_s));
    EXPECT_EQ(labelled.of({6, 12}).average, 12.0);
    EXPECT_EQ(labelled.isotopes({6, 0}).size(), 1U);
}

TEST(AtomMasses, AtomsOfNoTableAreRefused)
{
    const AtomMasses masses;
    EXPECT_TRUE(std::isnan(masses.of({118, 0}).average));
    EXPECT_TRUE(std::isnan(masses.of({6, 18}).average));
    EXPECT_TRUE(std::isnan(masses.of({200, 0}).average));
    EXPECT_TRUE(std::isnan(masses.of({}).average));
    const Parsed<Masses> weighed = masses.weigh(formula(u"HOg"_s));
    ASSERT_FALSE(weighed.hasValue());
    EXPECT_EQ(weighed.error().position, 1);
    EXPECT_TRUE(weighed.error().message.contains(u"Og"_s));
    EXPECT_FALSE(masses.molecule(formula(u"HOg"_s)).hasValue());
    EXPECT_TRUE(masses.isotopes({118, 0}).empty());
    EXPECT_TRUE(masses.isotopes({6, 18}).empty());
}

TEST(AtomMasses, IsotopesOfAnElementComeByMassWithTheirShares)
{
    const AtomMasses masses;
    const auto chlorine = masses.isotopes({17, 0});
    ASSERT_EQ(chlorine.size(), 2U);
    EXPECT_NEAR(chlorine[0].mass, 34.96885, 1e-5);
    EXPECT_NEAR(chlorine[1].mass, 36.96590, 1e-5);
    EXPECT_NEAR(chlorine[0].abundance + chlorine[1].abundance, 1.0, 1e-9);
    ASSERT_EQ(masses.isotopes({17, 37}).size(), 1U);
    EXPECT_EQ(masses.isotopes({17, 37})[0].abundance, 1.0);
}

TEST(AtomMasses, ALabelTakesItsShareAndTheOthersKeepTheirRatio)
{
    const AtomMasses natural;
    const AtomMasses heavy = natural.labelled({8, 18}, 0.97).value();
    const auto before = natural.isotopes({8, 0});
    const auto after = heavy.isotopes({8, 0});
    ASSERT_EQ(after.size(), 3U);
    EXPECT_EQ(after[2].abundance, 0.97);
    EXPECT_NEAR(after[0].abundance + after[1].abundance, 0.03, 1e-15);
    EXPECT_NEAR(after[0].abundance / after[1].abundance, before[0].abundance / before[1].abundance,
                1e-9);
    EXPECT_EQ(heavy.of({8, 0}).monoisotopic, natural.of({8, 18}).monoisotopic);
    EXPECT_EQ(heavy.of({7, 0}), natural.of({7, 0}));
    EXPECT_EQ(natural.isotopes({8, 0}).size(), 3U);
    EXPECT_LT(natural.of({8, 0}).average, 16.0);
}

TEST(AtomMasses, AFullLabelIsTheOnlyIsotope)
{
    const AtomMasses heavy = AtomMasses().labelled({7, 15}, 1.0).value();
    ASSERT_EQ(heavy.isotopes({7, 0}).size(), 1U);
    EXPECT_EQ(heavy.of({7, 0}), AtomMasses().of({7, 15}));
    EXPECT_EQ(AtomMasses().labelled({7, 15}, 0.0)->of({7, 0}), AtomMasses().of({7, 14}));
    EXPECT_TRUE(AtomMasses().labelled({15, 31}, 1.0).hasValue());
}

TEST(AtomMasses, ATracerThatNatureLacksCanBeALabel)
{
    const AtomMasses hot = AtomMasses().labelled({6, 14}, 0.5).value();
    ASSERT_EQ(hot.isotopes({6, 0}).size(), 3U);
    EXPECT_NEAR(hot.of({6, 0}).average, 0.5 * (14.003242 + AtomMasses().of({6, 0}).average), 1e-6);
}

TEST(AtomMasses, LabelsThatCannotBeAreRefused)
{
    const AtomMasses masses;
    EXPECT_FALSE(masses.labelled({7, 0}, 0.5).hasValue());
    EXPECT_FALSE(masses.labelled({7, 29}, 0.5).hasValue());
    EXPECT_FALSE(masses.labelled({200, 15}, 0.5).hasValue());
    EXPECT_FALSE(masses.labelled({7, 15}, -0.1).hasValue());
    EXPECT_FALSE(masses.labelled({7, 15}, 1.1).hasValue());
    EXPECT_FALSE(masses.labelled({7, 15}, std::nan("")).hasValue());
    EXPECT_FALSE(masses.labelled({15, 31}, 0.9).hasValue());
}

TEST(AtomMasses, AMoleculeOfTheFirstLibraryHasBothMasses)
{
    const chem::Molecule water = AtomMasses().molecule(formula(u"H2O"_s)).value();
    EXPECT_NEAR(water.monoMass(), 18.0105647, 1e-6);
    EXPECT_NEAR(water.averageMass(), 18.01528, 2e-4);
    EXPECT_EQ(water.formula().toString(), u"H2O"_s);
}

} // namespace

} // namespace ions
