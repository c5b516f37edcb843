#include "sequences/IonSide.h"

#include <gtest/gtest.h>

namespace {

using chem::FragmentType;

// a, b, c and d hold the left end of a chain, w, x, y and z the right one; an ion that breaks at
// both ends, or at none, holds neither.
TEST(IonSide, EachTypeOfIonHoldsTheEndThatItsLetterNames)
{
    using enum FragmentType;
    for (const FragmentType type : {A, Adot, B, C, Cdot, D, AB}) {
        EXPECT_TRUE(chem::isLeftIon(type)) << int(type);
        EXPECT_FALSE(chem::isRightIon(type)) << int(type);
    }
    for (const FragmentType type : {W, X, Xdot, Y, Z, Zdot}) {
        EXPECT_FALSE(chem::isLeftIon(type)) << int(type);
        EXPECT_TRUE(chem::isRightIon(type)) << int(type);
    }
    for (const FragmentType type : {Immonium, Oxonium, Precursor, PrecursorFrag, Unknown,
                                    FragmentType(-1), FragmentType(99)}) {
        EXPECT_FALSE(chem::isLeftIon(type)) << int(type);
        EXPECT_FALSE(chem::isRightIon(type)) << int(type);
    }
}

} // namespace
