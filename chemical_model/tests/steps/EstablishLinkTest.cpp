#include "Differences.h"
#include "ExtremeNumbers.h"
#include "RandomProteins.h"
#include "SmallMolecules.h"
#include "SumOfParts.h"
#include "TestPrinters.h"

#include <gtest/gtest.h>

#include <type_traits>

using namespace Qt::StringLiterals;
using namespace smallMolecules;
using fields::differences;

namespace {

static_assert(std::is_copy_assignable_v<chem::EstablishLink>);
static_assert(std::is_move_assignable_v<chem::EstablishLink>);
static_assert(std::is_base_of_v<chem::Transformation, chem::EstablishLink>);

using Connection = chem::Link::Connection;

const Connection firstToThird = {{0, 1}, {0, 3}};

chem::NamedMolecule disulfide()
{
    return namedGroup(u"disulfide"_s, u"SS"_s, u"H-2"_s, -2.0);
}

TEST(EstablishLink, AddsTheEntityToAllThreeTotals)
{
    // 1 + 3 * residue + 17 and half of that; C2H3NO three times and H2O.
    const chem::MoleculeEntity molecule = proteinOf(u"GGG"_s);
    const double average = 1.0 + 3 * (64.0 + 71 * 0.25) + 17.0;
    ASSERT_EQ(molecule.averageMass(), average);

    const chem::MoleculeEntity result =
        chem::EstablishLink(group(u"CO"_s, 28.0), firstToThird).transform(molecule);
    EXPECT_EQ(result.averageMass(), average + 28.0);
    EXPECT_EQ(result.monoMass(), average / 2 + 14.0);
    EXPECT_EQ(result.formula().toString(), u"C7H11N3O5"_s);
}

TEST(EstablishLink, StoresABareMoleculeOfTheEntity)
{
    const chem::Molecule water = chem::defaultChemicalFactory()->constructMolecule(u"H2O"_s);
    const chem::MoleculeEntity peptide = proteinOf(u"GG"_s);
    const QList<std::pair<chem::MoleculeEntity, chem::Molecule>> bridges = {
        {disulfide(), {formula(u"H-2"_s), -2.0, -1.0}},
        {aminoAcid(u'K'), aminoAcid(u'K')},
        {peptide, {peptide.formula(), peptide.averageMass(), peptide.monoMass()}},
        {chem::Molecule(formula(u"H2O"_s), 0.0, 0.0), water}}; // masses that are only implied
    const chem::MoleculeEntity molecule = proteinOf(u"CAC"_s);
    for (const auto& [bridge, stored] : bridges) {
        const chem::MoleculeEntity result =
            chem::EstablishLink(bridge, firstToThird).transform(molecule);
        EXPECT_EQ(differences(result.links(), QList{chem::Link(stored, firstToThird)}), "");
        EXPECT_EQ(result.averageMass(), molecule.averageMass() + stored.averageMass());
        EXPECT_EQ(result.monoMass(), molecule.monoMass() + stored.monoMass());
    }
}

TEST(EstablishLink, AppendsALinkAndLeavesEverythingElseAsItWas)
{
    const chem::MoleculeEntity molecule = proteinWithParts();
    const chem::MoleculeEntity result =
        chem::EstablishLink(group(u"H-2"_s, -2.0), firstToThird).transform(molecule);
    const chem::Link link(group(u"H-2"_s, -2.0), firstToThird);
    const chem::MoleculeEntity built =
        moleculeOf(molecule.chains(), molecule.modifications(), molecule.links() + QList{link});
    EXPECT_EQ(
        differences(moleculeOf(result.chains(), result.modifications(), result.links()), built),
        "");
    EXPECT_TRUE(hasTotalsOfItsParts(result));
    EXPECT_EQ(result.name(), u"molecule"_s);
    EXPECT_EQ(result.code(), u"M"_s);
    EXPECT_EQ(result.type(), chem::MoleculeType::Protein);
    EXPECT_EQ(historyTypes(result), QList<int>({5}));
}

TEST(EstablishLink, KeepsTheParentLocusOfAPiece)
{
    const chem::ParentChainLocus locus = {u"p"_s, 0, 1, 3};
    const chem::MoleculeEntity piece =
        chem::ChainFragmenter({{0, locus, 0}}).transform(proteinOf(u"CAC"_s));
    const chem::MoleculeEntity linked =
        chem::EstablishLink(disulfide(), firstToThird).transform(piece);
    EXPECT_EQ(differences(linked.chains().first().parentLocus(), locus), "");
}

TEST(EstablishLink, AppliedTwiceGivesTwoLinksAndCountsTwice)
{
    const chem::MoleculeEntity molecule = proteinOf(u"CAC"_s);
    const chem::EstablishLink step(disulfide(), firstToThird);
    const chem::MoleculeEntity result = step.transform(step.transform(molecule));
    EXPECT_EQ(result.links().size(), 2);
    EXPECT_EQ(result.links().first(), result.links().last());
    EXPECT_EQ(result.averageMass(), molecule.averageMass() - 4.0);
}

TEST(EstablishLink, AcceptsAnyConnectionAndKeepsItsDirection)
{
    for (const Connection& connection :
         {Connection{{0, 3}, {0, 1}}, Connection{{5, 0}, {0, 99}}, Connection{{-1, -1}, {-1, -1}},
          Connection{{lowest, highest}, {highest, lowest}}, Connection{{0, 1}, {0, 1}}}) {
        const chem::MoleculeEntity result =
            chem::EstablishLink(28.0, connection).transform(proteinOf(u"CAC"_s));
        EXPECT_EQ(result.links().last().connection(), connection);
        EXPECT_TRUE(hasTotalsOfItsParts(result));
    }
}

RC_GTEST_PROP(EstablishLinkLaws, LinkAddsItsBridgeAndChangesNoResidue, ())
{
    const chem::MoleculeEntity protein = randomProteins::anyProtein();
    const chem::MoleculeEntity bridge = randomProteins::anyGroup();
    const chem::Link::Connection connection = {{0, *rc::gen::inRange(0, 5)},
                                               {0, *rc::gen::inRange(0, 5)}};
    const chem::MoleculeEntity linked = chem::EstablishLink(bridge, connection).transform(protein);
    RC_ASSERT(linked.averageMass() == protein.averageMass() + bridge.averageMass());
    RC_ASSERT(linked.monoMass() == protein.monoMass() + bridge.monoMass());
    RC_ASSERT(linked.chains() == protein.chains());
    RC_ASSERT(linked.links().size() == protein.links().size() + 1);
    RC_ASSERT(linked.links().last().connection() == connection);
}

} // namespace
