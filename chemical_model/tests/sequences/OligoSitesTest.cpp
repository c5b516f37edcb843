#include "sequences/OligoSites.h"

#include "OligoLetters.h"

#include <gtest/gtest.h>

#include <vector>

using namespace oligoLetters;

namespace {

using chem::FragmentType;
using Types = std::vector<FragmentType>;

Types typesOf(const QList<QSharedPointer<chem::FragmentationSite>>& listed)
{
    Types types;
    for (const auto& site : listed)
        types.push_back(site->type);
    return types;
}

TEST(OligoSites, InnerNucleotideCanLoseItsBaseAndEndsCannot)
{
    const chem::OligoSites all = sites();
    const auto breaks = all.breaksOf(molecule(u"C5H4N5"_s), molecule(u"HPO3"_s));
    Types expected = {FragmentType::AB, FragmentType::D, FragmentType::B,
                      FragmentType::C,  FragmentType::A, FragmentType::W,
                      FragmentType::Y,  FragmentType::Z, FragmentType::X};
    EXPECT_EQ(typesOf(all.sitesAt(breaks, breaks, true)), expected);
    expected.erase(expected.begin());
    EXPECT_EQ(typesOf(all.sitesAt(all.beforeFirst(), breaks, false)), expected);
}

TEST(OligoSites, BaseLeavesWithItsPhosphateAndTwoHydrogens)
{
    const auto breaks = sites().breaksOf(molecule(u"C5H4N5"_s), molecule(u"HPO3"_s));
    EXPECT_EQ(breaks.aB.lost.formula().toString(), u"C5H7N5O3P"_s);
    EXPECT_EQ(breaks.aB.delta.formula().toString(), u"C(-5)H(-7)N(-5)O(-3)P(-1)"_s);
}

// The ions w and x of a position hold the phosphate of the nucleotide before it.
TEST(OligoSites, PhosphateComesAlongWithTheNextNucleotide)
{
    const auto breaks = sites().breaksOf(molecule(u"C5H4N5"_s), molecule(u"HPO3"_s));
    EXPECT_EQ(breaks.nextW.delta.formula().toString(), u"H2O3P"_s);
    EXPECT_EQ(breaks.nextX.delta.formula().toString(), u"O2P"_s); // HPO3 less OH
    const chem::OligoSites all = sites();
    EXPECT_EQ(all.beforeFirst().nextW.delta.formula().toString(), u"H"_s);
    EXPECT_EQ(all.beforeFirst().nextX.delta.formula().toString(), u"H(-1)O(-1)"_s);
}

} // namespace
