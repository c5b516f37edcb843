#include "MessageRecorder.h"
#include "RandomMolecules.h"
#include "SameMolecules.h"
#include "TestFormulas.h"

#include <gtest/gtest.h>

#include <stdexcept>

using namespace Qt::StringLiterals;
using namespace randomMolecules;

namespace {

using chem::Molecule;

Molecule modified(const Molecule& start, const QString& modification, int count)
{
    return naturalFactory().modifyMolecule(start, modification, count);
}

/// The molecule so many times.
Molecule times(int count, Molecule molecule)
{
    molecule *= count;
    return molecule;
}

/// Gold has isotopes that are refused; no building block holds any, so the factory can be made.
QSharedPointer<const chem::ChemicalFactory> factoryWithoutGold()
{
    return chem::ChemicalFactory::construct(u"Au197:1.5"_s);
}

TEST(FactoryMasses, MoleculeOfUnknownElementsKeepsItsFormula)
{
    const Molecule result = molecule(u"Xx2Yy"_s);
    EXPECT_EQ(result.formula().toString(), u"Xx2Yy"_s);
    EXPECT_EQ(result.averageMass(), 0.0);
    EXPECT_EQ(result.monoMass(), 0.0);
}

TEST(FactoryMasses, MoleculeHoldsBothMassesInTheirOrder)
{
    const Molecule result = molecule(u"C60"_s);
    EXPECT_EQ(result.monoMass(), 720.0);
    EXPECT_NEAR(result.averageMass(), 720.649, 0.001);
}

TEST(FactoryMasses, ModificationAddsItsGainsThenTakesItsLosses)
{
    const Molecule glucose = molecule(u"C6H12O6"_s);
    for (const int count : {2, 1, 0, -1, -3}) {
        SCOPED_TRACE(count);
        const Molecule expected =
            glucose + times(count, molecule(u"O"_s)) - times(count, molecule(u"H2"_s));
        expectSame(modified(glucose, u"O1H(-2)"_s, count), expected);
    }
    EXPECT_EQ(modified(glucose, u"O1H-2"_s, -1).formula().toString(), u"C6H14O5"_s);
}

TEST(FactoryMasses, ModificationWorksOnStoredMasses)
{
    const Molecule odd(formulaWith({{u"C"_s, 1}}), 2.5, 1.5); // carbon weighs 12
    expectSame(modified(odd, u"O"_s, 1), odd + molecule(u"O"_s));
}

TEST(FactoryMasses, ModificationIsGoodToSixDigits)
{
    expectSame(modified({}, u"C1234567"_s, 1), times(1, molecule(u"C1234570"_s)));
    EXPECT_EQ(modified({}, u"C-1234567"_s, 1).formula().elementCount(u"C"_s), -1234570);
    EXPECT_EQ(modified({}, u"C-1234567"_s, 1).monoMass(), -1234570.0 * 12.0);
}

TEST(FactoryMasses, OneOutputForBothMassesKeepsTheOneWrittenLast)
{
    double mass = 0.0;
    naturalFactory().calculateMassesForFormula(formulaWith({{u"C"_s, 1}}), &mass, &mass);
    EXPECT_EQ(mass, molecule(u"C"_s).averageMass());
    naturalFactory().calculateMassesForElementCountArrays({u"C"_s}, {1}, &mass, &mass);
    EXPECT_EQ(mass, 12.0);
}

TEST(FactoryMasses, EntriesOfZeroInAModificationLeaveNoTrace)
{
    const Molecule result = modified({}, u"C0H1"_s, 1);
    EXPECT_EQ(result.formula().elementCountMap(), (QMap<QString, double>{{u"H"_s, 1}}));
}

TEST(FactoryMasses, OddTextWritesNoMessage)
{
    const MessageRecorder recorder;
    for (const QString& text : {u""_s, u"Xx2"_s, u"?!"_s, u"C1.5"_s, u"C-1"_s, u"C1e999"_s})
        molecule(text);
    EXPECT_TRUE(MessageRecorder::messages().isEmpty());
}

RC_GTEST_PROP(FactoryMassesLaws, AddedGroupCanBeTakenOffAgain, ())
{
    const Molecule start = molecule(anyFormulaText());
    const QString group = anyFormulaText();
    const int count = *rc::gen::inRange(1, 9);
    const Molecule there = modified(start, group, count);
    RC_ASSERT(isAlike(modified(there, group, -count), start, there.averageMass()));
}

TEST(FactoryMasses, ModificationThatGainsOrLosesARefusedElementThrows)
{
    const auto factory = factoryWithoutGold();
    const chem::Molecule water = factory->constructMolecule(u"H2O"_s);
    EXPECT_THROW(factory->modifyMolecule(water, u"Au"_s, 1), std::invalid_argument);
    EXPECT_THROW(factory->modifyMolecule(water, u"H-1Au-1"_s, 1), std::invalid_argument);
    EXPECT_THROW(factory->modifyMolecule(water, u"Au"_s, 0), std::invalid_argument);
    EXPECT_NO_THROW(factory->modifyMolecule(water, u"H-1"_s, 1));
}

TEST(FactoryMasses, EstimatesFromARefusedElementThrow)
{
    const auto factory = factoryWithoutGold();
    EXPECT_THROW(factory->moleculeBasedOnAverageMass(u"C5Au"_s, 200.0), std::invalid_argument);
    EXPECT_THROW(factory->moleculeBasedOnMonoMass(u"C5Au"_s, 200.0), std::invalid_argument);
    EXPECT_NO_THROW(factory->moleculeBasedOnAverageMass(u"C5"_s, 200.0));
    EXPECT_NO_THROW(factory->moleculeBasedOnMonoMass(u"C5"_s, 200.0));
}

} // namespace
