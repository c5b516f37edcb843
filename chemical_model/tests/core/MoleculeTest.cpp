#include "SameMolecules.h"
#include "TestFormulas.h"

#include <gtest/gtest.h>

#include <concepts>
#include <type_traits>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

using chem::Molecule;
using chem::NamedMolecule;
using Counts = QMap<QString, double>;

Molecule molecule(double count, double averageMass, double monoMass)
{
    return Molecule(formulaWith({{u"C"_s, count}}), averageMass, monoMass);
}

TEST(Molecule, StartsEmptyAndWeighsNothing)
{
    const Molecule none;
    EXPECT_TRUE(none.formula().isEmpty());
    EXPECT_EQ(none.averageMass(), 0.0);
    EXPECT_EQ(none.monoMass(), 0.0);
    Molecule sum = molecule(1, 12.01, 12.0);
    sum += none;
    EXPECT_EQ(sum.averageMass(), 12.01);
    EXPECT_EQ(sum.monoMass(), 12.0);
}

TEST(Molecule, AverageMassComesFirst)
{
    const Molecule any(formulaWith({{u"C"_s, 1}}), 10.0, 9.0);
    EXPECT_EQ(any.averageMass(), 10.0);
    EXPECT_EQ(any.monoMass(), 9.0);
}

TEST(Molecule, ArithmeticWorksOnStoredNumbers)
{
    const Molecule a = molecule(1, 0.1, 0.7);
    const Molecule b = molecule(2, 0.2, 0.1);
    expectSame(a + b, molecule(3, 0.1 + 0.2, 0.7 + 0.1));
    expectSame(a - b, molecule(-1, 0.1 - 0.2, 0.7 - 0.1));
}

TEST(Molecule, MinusItselfLeavesZeroEntries)
{
    const Molecule a = molecule(3, 36.03, 36.0);
    expectSame(a - a, molecule(0, 0.0, 0.0));
}

TEST(Molecule, FactorsApplyToMassesAndCountsAlike)
{
    Molecule a = molecule(3, 36.03, 36.0);
    a *= -2;
    expectSame(a, molecule(-6, -72.06, -72.0));
    a *= 0;
    EXPECT_EQ(a.averageMass(), 0.0);
    EXPECT_EQ(a.monoMass(), 0.0);
    EXPECT_EQ(a.formula().elementCountMap(), Counts({{u"C"_s, 0}}));
}

TEST(Molecule, MovingIsCopying)
{
    Molecule source = molecule(1, 2.0, 3.0);
    const Molecule target = std::move(source);
    Molecule assigned;
    assigned = std::move(source); // NOLINT(bugprone-use-after-move)
    for (const Molecule& copy : {source, target, assigned})
        expectSame(copy, molecule(1, 2.0, 3.0));
}

TEST(NamedMolecule, StartsWithEmptyTexts)
{
    const NamedMolecule none;
    EXPECT_TRUE(none.code.isEmpty());
    EXPECT_TRUE(none.name.isEmpty());
    EXPECT_TRUE(none.formula().isEmpty());
}

TEST(NamedMolecule, NameComesBeforeCode)
{
    const NamedMolecule glycine(molecule(2, 57.05, 57.02), u"Glycine"_s, u"G"_s);
    EXPECT_EQ(glycine.name, u"Glycine"_s);
    EXPECT_EQ(glycine.code, u"G"_s);
    EXPECT_EQ(glycine.averageMass(), 57.05);
}

TEST(NamedMolecule, KeepsItsLabelsThroughInheritedOperators)
{
    NamedMolecule glycine(molecule(2, 57.0, 57.5), u"Glycine"_s, u"G"_s);
    glycine += molecule(1, 12.0, 12.5);
    glycine -= molecule(2, 24.0, 25.0);
    glycine *= 2;
    expectSame(glycine, NamedMolecule(molecule(2, 90.0, 90.0), u"Glycine"_s, u"G"_s));
}

TEST(NamedMolecule, SumsAreUnnamed)
{
    const NamedMolecule glycine(molecule(2, 57.0, 57.0), u"Glycine"_s, u"G"_s);
    static_assert(std::is_same_v<decltype(glycine + glycine), Molecule>);
    static_assert(std::is_same_v<decltype(glycine - glycine), Molecule>);
    EXPECT_EQ((glycine + glycine).averageMass(), 114.0);
}

TEST(NamedMolecule, MovingCopiesTheMoleculeAndTakesTheTexts)
{
    const QString name = u"Glycine of heap memory"_s;
    NamedMolecule source(molecule(2, 57.0, 57.5), name, u"G"_s);
    const NamedMolecule target = std::move(source);
    expectSame(target, NamedMolecule(molecule(2, 57.0, 57.5), name, u"G"_s));
    // NOLINTNEXTLINE(bugprone-use-after-move)
    expectSame(source, NamedMolecule(molecule(2, 57.0, 57.5), QString(), QString()));
    static_assert(std::is_nothrow_move_constructible_v<NamedMolecule>);
}

TEST(Molecule, CannotBeCompared)
{
    static_assert(!std::equality_comparable<Molecule>);
    static_assert(!std::equality_comparable<NamedMolecule>);
}

TEST(NamedMolecule, AssignmentCarriesLabelsAndMolecule)
{
    const QString name = u"Glycine of heap memory"_s;
    NamedMolecule source(molecule(2, 57.5, 57.0), name, u"G"_s);
    NamedMolecule copied;
    copied = source;
    NamedMolecule moved;
    moved = std::move(source);
    for (const NamedMolecule& target : {copied, moved})
        expectSame(target, NamedMolecule(molecule(2, 57.5, 57.0), name, u"G"_s));
    expectSame(static_cast<const Molecule&>(source), // NOLINT(bugprone-use-after-move)
               molecule(2, 57.5, 57.0));
}

} // namespace
