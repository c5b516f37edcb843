#include "RandomProteins.h"
#include "SmallMolecules.h"
#include "TestPrinters.h"

#include <gtest/gtest.h>

#include <limits>
#include <type_traits>

using namespace Qt::StringLiterals;
using namespace smallMolecules;

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

TEST(EstablishLink, AppendsALinkWithTheGivenConnection)
{
    const chem::MoleculeEntity molecule =
        moleculeOf({letterChain(u"CAC"_s)}, {}, {chem::Link(5.0, {{0, 0}, {0, 0}})});
    const QList<chem::Link> links =
        chem::EstablishLink(disulfide(), firstToThird).transform(molecule).links();
    ASSERT_EQ(links.size(), 2);
    EXPECT_EQ(links.first(), chem::Link(5.0, {{0, 0}, {0, 0}}));
    EXPECT_EQ(links.last().connection(), firstToThird);
}

TEST(EstablishLink, KeepsTheDirectionOfTheConnection)
{
    const Connection backwards = {{0, 3}, {0, 1}};
    const auto links =
        chem::EstablishLink(disulfide(), backwards).transform(proteinOf(u"CAC"_s)).links();
    EXPECT_EQ(links.last().connection(), backwards);
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

TEST(EstablishLink, NegativeMassLowersTheTotals)
{
    const chem::MoleculeEntity molecule = proteinOf(u"CAC"_s);
    const chem::MoleculeEntity result =
        chem::EstablishLink(disulfide(), firstToThird).transform(molecule);
    EXPECT_EQ(result.averageMass(), molecule.averageMass() - 2.0);
    EXPECT_EQ(result.monoMass(), molecule.monoMass() - 1.0);
    EXPECT_EQ(result.formula().elementCount(u"H"_s), molecule.formula().elementCount(u"H"_s) - 2);
}

TEST(EstablishLink, StoresABareMoleculeWithoutTheTextsOfTheEntity)
{
    const chem::MoleculeEntity stored = chem::EstablishLink(disulfide(), firstToThird)
                                            .transform(proteinOf(u"CAC"_s))
                                            .links()
                                            .last()
                                            .entity();
    EXPECT_EQ(stored.name(), QString());
    EXPECT_EQ(stored.code(), QString());
    EXPECT_EQ(stored.averageMass(), -2.0);
    EXPECT_EQ(stored.monoMass(), -1.0);
    EXPECT_EQ(stored.formula().toString(), u"H(-2)"_s);
}

TEST(EstablishLink, StoresTheTypeOfNoEntity)
{
    const auto links =
        chem::EstablishLink(aminoAcid(u'K'), firstToThird).transform(proteinOf(u"CAC"_s)).links();
    EXPECT_EQ(links.last().entity().type(), chem::MoleculeType::Unknown);
}

TEST(EstablishLink, StoresThePartsOfNoEntity)
{
    const chem::MoleculeEntity bridge = proteinOf(u"GG"_s);
    const chem::MoleculeEntity stored = chem::EstablishLink(bridge, firstToThird)
                                            .transform(proteinOf(u"CAC"_s))
                                            .links()
                                            .last()
                                            .entity();
    EXPECT_TRUE(stored.chains().isEmpty());
    EXPECT_EQ(stored.averageMass(), bridge.averageMass());
}

TEST(EstablishLink, StoresMassesThatTheEntityOnlyImplied)
{
    const chem::Molecule water = chem::defaultChemicalFactory()->constructMolecule(u"H2O"_s);
    const chem::MoleculeEntity molecule = proteinOf(u"CAC"_s);
    const chem::MoleculeEntity result =
        chem::EstablishLink(chem::Molecule(formula(u"H2O"_s), 0.0, 0.0), firstToThird)
            .transform(molecule);
    EXPECT_EQ(result.links().last().entity().averageMass(), water.averageMass());
    EXPECT_EQ(result.averageMass(), molecule.averageMass() + water.averageMass());
    EXPECT_EQ(result.monoMass(), molecule.monoMass() + water.monoMass());
}

TEST(EstablishLink, LeavesEverythingElseAsItWas)
{
    const chem::MoleculeEntity molecule =
        moleculeOf({letterChain(u"CAC"_s)}, {chem::Modification(3.0, {{0, 1}, {0, 2}})});
    const chem::MoleculeEntity result =
        chem::EstablishLink(disulfide(), firstToThird).transform(molecule);
    EXPECT_EQ(result.name(), u"molecule"_s);
    EXPECT_EQ(result.code(), u"M"_s);
    EXPECT_EQ(result.type(), chem::MoleculeType::Protein);
    EXPECT_EQ(result.chains(), molecule.chains());
    EXPECT_EQ(result.chains().first().code(), u"c"_s);
    EXPECT_EQ(result.modifications(), molecule.modifications());
    EXPECT_EQ(residueAt(result, 0, 1).type(), chem::MoleculeType::AminoAcid);
    EXPECT_TRUE(residueAt(result, 0, 1).transformations().isEmpty());
}

TEST(EstablishLink, KeepsTheParentLocusOfAPiece)
{
    const chem::MoleculeEntity piece =
        chem::ChainFragmenter({{0, {u"p"_s, 0, 1, 3}, 0}}).transform(proteinOf(u"CAC"_s));
    const chem::MoleculeEntity linked =
        chem::EstablishLink(disulfide(), firstToThird).transform(piece);
    EXPECT_EQ(describe(linked.chains().first().parentLocus()), u"p:0:1:3"_s);
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

TEST(EstablishLink, AcceptsAnyConnection)
{
    constexpr int lowest = std::numeric_limits<int>::min();
    constexpr int highest = std::numeric_limits<int>::max();
    const chem::MoleculeEntity molecule = proteinOf(u"CAC"_s);
    for (const Connection& connection :
         {Connection{{5, 0}, {0, 99}}, Connection{{-1, -1}, {-1, -1}},
          Connection{{lowest, highest}, {highest, lowest}}, Connection{{0, 1}, {0, 1}}}) {
        const chem::MoleculeEntity result =
            chem::EstablishLink(28.0, connection).transform(molecule);
        EXPECT_EQ(result.links().last().connection(), connection);
        EXPECT_EQ(result.averageMass(), molecule.averageMass() + 28.0);
        EXPECT_EQ(result.monoMass(), molecule.monoMass() + 28.0);
    }
}

TEST(EstablishLink, RecordsItselfAndLeavesTheInputAlone)
{
    const chem::MoleculeEntity molecule = proteinOf(u"CAC"_s);
    const QString before = describe(molecule);
    const chem::MoleculeEntity result =
        chem::EstablishLink(disulfide(), firstToThird).transform(molecule);
    EXPECT_EQ(historyTypes(result), QList<int>({5}));
    EXPECT_EQ(describe(molecule), before);
    EXPECT_EQ(describe(stateBefore(result, 0)), before);
}

TEST(EstablishLink, CopiesAndMovesApplyTheSameLink)
{
    const chem::MoleculeEntity molecule = proteinOf(u"CAC"_s);
    chem::EstablishLink step(disulfide(), firstToThird);
    const QString expected = describe(step.transform(molecule));
    const chem::EstablishLink copy(step);
    chem::EstablishLink assigned(0, {});
    assigned = step;
    const chem::EstablishLink moved(std::move(step));
    EXPECT_EQ(describe(copy.transform(molecule)), expected);
    EXPECT_EQ(describe(assigned.transform(molecule)), expected);
    EXPECT_EQ(describe(moved.transform(molecule)), expected);
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
