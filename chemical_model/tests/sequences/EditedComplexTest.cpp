#include "sequences/EditedComplex.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

using chem::FragmentationSite;
using Sites = QList<QSharedPointer<FragmentationSite>>;

Sites oneSite(chem::FragmentType type)
{
    Sites sites;
    sites.append(
        QSharedPointer<FragmentationSite>::create(type, chem::Molecule(), chem::Molecule()));
    return sites;
}

/// Three residues and two lists of sites.
chem::MoleculeComplex shortOfSites()
{
    const auto residue =
        QSharedPointer<chem::ComplexResidue>::create(chem::Molecule(), u"name"_s, u"A"_s, 0);
    return {chem::Molecule(),
            {residue, residue, residue},
            {oneSite(chem::FragmentType::B), oneSite(chem::FragmentType::Y)}};
}

TEST(EditedComplex, SitesAreThoseOfThePosition)
{
    const chem::MoleculeComplex complex = shortOfSites();
    ASSERT_EQ(chem::sitesAt(complex, 0).size(), 1U);
    EXPECT_EQ(chem::sitesAt(complex, 0).front()->type, chem::FragmentType::B);
    ASSERT_EQ(chem::sitesAt(complex, 1).size(), 1U);
    EXPECT_EQ(chem::sitesAt(complex, 1).front()->type, chem::FragmentType::Y);
}

TEST(EditedComplex, PositionBehindTheLastListHasNoSites)
{
    const chem::MoleculeComplex complex = shortOfSites();
    EXPECT_TRUE(chem::sitesAt(complex, 2).empty());
    EXPECT_TRUE(chem::sitesAt(complex, 3).empty());
    EXPECT_TRUE(chem::sitesAt(chem::MoleculeComplex({}, {}, {}), 0).empty());
}

// A list that is read as a non-const one would part from its copies, inside the complex.
TEST(EditedComplex, ReadingLeavesTheListsShared)
{
    const chem::MoleculeComplex complex = shortOfSites();
    const chem::MoleculeComplex copy = complex;
    EXPECT_EQ(chem::sitesAt(complex, 0).data(), chem::sitesAt(copy, 0).data());
    EXPECT_TRUE(complex.sites.isSharedWith(copy.sites));
}

} // namespace
