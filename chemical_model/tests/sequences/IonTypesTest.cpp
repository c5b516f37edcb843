#include "sequences/IonTypes.h"

#include "TestPrinters.h"

#include <gtest/gtest.h>

#include <vector>

using namespace Qt::StringLiterals;

namespace {

using chem::FragmentType;

struct IonType
{
    FragmentType type;
    QString label;
};

const std::vector<IonType>& leftIons()
{
    static const std::vector<IonType> ions = {
        {FragmentType::A, u"a"_s},   {FragmentType::Adot, u"a."_s}, {FragmentType::B, u"b"_s},
        {FragmentType::C, u"c"_s},   {FragmentType::Cdot, u"c."_s}, {FragmentType::D, u"d"_s},
        {FragmentType::AB, u"aB"_s},
    };
    return ions;
}

const std::vector<IonType>& rightIons()
{
    static const std::vector<IonType> ions = {
        {FragmentType::W, u"w"_s}, {FragmentType::X, u"x"_s}, {FragmentType::Xdot, u"x."_s},
        {FragmentType::Y, u"y"_s}, {FragmentType::Z, u"z"_s}, {FragmentType::Zdot, u"z."_s},
    };
    return ions;
}

TEST(IonTypes, LeftIonsHoldTheLeftEndAndHaveTheirLabels)
{
    for (const IonType& ion : leftIons()) {
        EXPECT_TRUE(chem::isLeftIon(ion.type)) << ion.label.toStdString();
        EXPECT_FALSE(chem::isRightIon(ion.type)) << ion.label.toStdString();
        EXPECT_EQ(chem::fragmentLabel(ion.type), ion.label);
    }
}

TEST(IonTypes, RightIonsHoldTheRightEndAndHaveTheirLabels)
{
    for (const IonType& ion : rightIons()) {
        EXPECT_TRUE(chem::isRightIon(ion.type)) << ion.label.toStdString();
        EXPECT_FALSE(chem::isLeftIon(ion.type)) << ion.label.toStdString();
        EXPECT_EQ(chem::fragmentLabel(ion.type), ion.label);
    }
}

TEST(IonTypes, AnyOtherNumberIsNoIonOfAChain)
{
    for (const int number : {-1, 13, 14, 15, 16, 17, 18, 99}) {
        const auto type = static_cast<FragmentType>(number);
        EXPECT_FALSE(chem::isLeftIon(type)) << number;
        EXPECT_FALSE(chem::isRightIon(type)) << number;
        EXPECT_EQ(chem::fragmentLabel(type), u"unknown"_s) << number;
    }
}

} // namespace
