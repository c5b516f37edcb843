#include "sequences/PeptideSites.h"

#include "OligoLetters.h"

#include <gtest/gtest.h>

#include <map>

using namespace oligoLetters;

namespace {

using chem::FragmentType;

// An a ion is a b ion less CO, c and y ions hold the ammonia and the hydrogen that b and z ions
// lack, and x is y with CO in place of two hydrogens.
TEST(PeptideSites, IonsDifferByTheGroupsAtTheBreak)
{
    chem::ChainGroups groups;
    groups.hydrogen = molecule(u"H"_s);
    groups.hydrogenPair = molecule(u"H2"_s);
    groups.amine = molecule(u"NH2"_s);
    groups.ammonia = molecule(u"NH3"_s);
    groups.formyl = molecule(u"CHO"_s);
    std::map<FragmentType, QString> deltas;
    for (const chem::FragmentationSite& site : chem::peptideSites(groups))
        deltas[site.type] = site.delta.formula().toString();
    const std::map<FragmentType, QString> expected = {
        {FragmentType::A, u"C(-1)H(-1)O(-1)"_s}, {FragmentType::Adot, u"C(-1)O(-1)"_s},
        {FragmentType::B, u"H(-1)"_s},           {FragmentType::C, u"H2N"_s},
        {FragmentType::Cdot, u"H3N"_s},          {FragmentType::X, u"C1H(-1)O"_s},
        {FragmentType::Xdot, u"C1O"_s},          {FragmentType::Y, u"H"_s},
        {FragmentType::Z, u"H(-2)N(-1)"_s},      {FragmentType::Zdot, u"H(-1)N(-1)"_s}};
    EXPECT_EQ(deltas, expected);
}

} // namespace
