#include "TestFormulas.h"
#include "TestPrinters.h"
#include <Molecule.h>

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
    EXPECT_EQ((a + b).averageMass(), 0.1 + 0.2);
    EXPECT_EQ((a + b).monoMass(), 0.7 + 0.1);
    EXPECT_EQ((a + b).formula().elementCountMap(), Counts({{u"C"_s, 3}}));
    EXPECT_EQ((a - b).averageMass(), 0.1 - 0.2);
    EXPECT_EQ((a - b).monoMass(), 0.7 - 0.1);
    EXPECT_EQ((a - b).formula().elementCountMap(), Counts({{u"C"_s, -1}}));
}

TEST(Molecule, MinusItselfLeavesZeroEntries)
{
    const Molecule a = molecule(3, 36.03, 36.0);
    const Molecule none = a - a;
    EXPECT_EQ(none.averageMass(), 0.0);
    EXPECT_EQ(none.monoMass(), 0.0);
    EXPECT_FALSE(none.formula().isEmpty());
    EXPECT_EQ(none.formula().elementCount(u"C"_s), 0);
}

TEST(Molecule, FactorsApplyToMassesAndCountsAlike)
{
    Molecule a = molecule(3, 36.03, 36.0);
    a *= -2;
    EXPECT_EQ(a.averageMass(), -72.06);
    EXPECT_EQ(a.monoMass(), -72.0);
    EXPECT_EQ(a.formula().elementCount(u"C"_s), -6);
    a *= 0;
    EXPECT_EQ(a.averageMass(), 0.0);
    EXPECT_EQ(a.monoMass(), 0.0);
    EXPECT_EQ(a.formula().elementCountMap(), Counts({{u"C"_s, 0}}));
}

TEST(Molecule, MovingIsCopying)
{
    Molecule source = molecule(1, 2.0, 3.0);
    const Molecule target = std::move(source);
    EXPECT_EQ(source.averageMass(), 2.0); // NOLINT(bugprone-use-after-move)
    EXPECT_EQ(source.formula().elementCount(u"C"_s), 1);
    EXPECT_EQ(target.averageMass(), 2.0);
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

TEST(NamedMolecule, KeepsItsLabelsWhenSomethingIsAdded)
{
    NamedMolecule glycine(molecule(2, 57.0, 57.5), u"Glycine"_s, u"G"_s);
    glycine += molecule(1, 12.0, 12.5);
    EXPECT_EQ(glycine.name, u"Glycine"_s);
    EXPECT_EQ(glycine.code, u"G"_s);
    EXPECT_EQ(glycine.averageMass(), 69.0);
    EXPECT_EQ(glycine.monoMass(), 70.0);
    EXPECT_EQ(glycine.formula().elementCount(u"C"_s), 3);
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
    NamedMolecule source(molecule(2, 57.0, 57.0), u"Glycine of heap memory"_s, u"G"_s);
    const NamedMolecule target = std::move(source);
    EXPECT_EQ(target.name, u"Glycine of heap memory"_s);
    EXPECT_EQ(source.formula().elementCount(u"C"_s), 2); // NOLINT(bugprone-use-after-move)
    EXPECT_EQ(source.averageMass(), 57.0);
    EXPECT_TRUE(source.name.isEmpty());
    EXPECT_TRUE(source.code.isEmpty());
    static_assert(std::is_nothrow_move_constructible_v<NamedMolecule>);
}

TEST(Molecule, CannotBeCompared)
{
    static_assert(!std::equality_comparable<Molecule>);
    static_assert(!std::equality_comparable<NamedMolecule>);
}

TEST(Molecule, AssigningByMoveIsCopyingToo)
{
    Molecule source = molecule(1, 2.0, 3.0);
    Molecule target;
    target = std::move(source);
    EXPECT_EQ(target.formula().elementCount(u"C"_s), 1);
    EXPECT_EQ(source.monoMass(), 3.0); // NOLINT(bugprone-use-after-move)
    EXPECT_EQ(source.formula().elementCount(u"C"_s), 1);
}

TEST(NamedMolecule, AssignmentCarriesLabelsAndMolecule)
{
    NamedMolecule source(molecule(2, 57.5, 57.0), u"Glycine of heap memory"_s, u"G"_s);
    NamedMolecule copied;
    copied = source;
    EXPECT_EQ(copied.name, source.name);
    EXPECT_EQ(copied.code, u"G"_s);
    EXPECT_EQ(copied.averageMass(), 57.5);

    NamedMolecule moved;
    moved = std::move(source);
    EXPECT_EQ(moved.name, copied.name);
    EXPECT_EQ(moved.code, u"G"_s);
    EXPECT_EQ(moved.monoMass(), 57.0);
    EXPECT_EQ(source.monoMass(), 57.0); // NOLINT(bugprone-use-after-move)
    EXPECT_EQ(source.formula().elementCount(u"C"_s), 2);
}

TEST(NamedMolecule, KeepsItsLabelsThroughInheritedOperators)
{
    NamedMolecule glycine(molecule(2, 57.0, 57.5), u"Glycine"_s, u"G"_s);
    glycine -= molecule(1, 12.0, 12.5);
    glycine *= 2;
    EXPECT_EQ(glycine.name, u"Glycine"_s);
    EXPECT_EQ(glycine.code, u"G"_s);
    EXPECT_EQ(glycine.averageMass(), 90.0);
    EXPECT_EQ(glycine.monoMass(), 90.0);
}

} // namespace
