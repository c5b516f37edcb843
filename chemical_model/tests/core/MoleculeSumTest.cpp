#include "core/MoleculeSum.h"

#include "SameMolecules.h"
#include "TestFormulas.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

using chem::Molecule;
using chem::MoleculeSum;

Molecule carbons(double count, double averageMass, double monoMass)
{
    return Molecule(formulaWith({{u"C"_s, count}}), averageMass, monoMass);
}

TEST(MoleculeSum, OfNothingIsEmptyAndWeighsNothing)
{
    expectSame(MoleculeSum().result(), Molecule());
}

// 0.1 + 0.2 + 0.3 and 0.3 + 0.2 + 0.1 differ in the last bit.
TEST(MoleculeSum, AddsMassesAndCountsInTheOrderGiven)
{
    ASSERT_NE(0.1 + 0.2 + 0.3, 0.3 + 0.2 + 0.1);
    MoleculeSum sum;
    sum.add(carbons(0.1, 0.1, 0.3));
    sum.add(carbons(0.2, 0.2, 0.2));
    sum.add(carbons(0.3, 0.3, 0.1));
    expectSame(sum.result(), carbons(0.1 + 0.2 + 0.3, 0.1 + 0.2 + 0.3, 0.3 + 0.2 + 0.1));
}

TEST(MoleculeSum, StartsFromTheFirstAsItStands)
{
    const Molecule negativeZeros = carbons(-0.0, -0.0, -0.0); // 0.0 and it would make 0.0
    expectSame(MoleculeSum(negativeZeros).result(), negativeZeros);
    MoleculeSum sum(carbons(2, 24.5, 24.0));
    sum.add(carbons(1, 12.5, 12.0));
    expectSame(sum.result(), carbons(3, 37.0, 36.0));
}

} // namespace
