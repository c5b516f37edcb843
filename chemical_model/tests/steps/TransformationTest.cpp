#include "Differences.h"
#include "SmallMolecules.h"
#include "TestPrinters.h"

#include <gtest/gtest.h>

#include <type_traits>

using namespace Qt::StringLiterals;
using namespace smallMolecules;
using chem::TransformationEntity;
using fields::differences;

namespace {

static_assert(std::is_abstract_v<chem::Transformation>);
static_assert(std::has_virtual_destructor_v<chem::Transformation>);
static_assert(std::is_copy_assignable_v<chem::Transformation>);

static_assert(std::is_base_of_v<chem::Transformation, TransformationEntity>);
static_assert(!std::is_default_constructible_v<TransformationEntity>);
static_assert(std::is_copy_constructible_v<TransformationEntity>);
static_assert(std::is_copy_assignable_v<TransformationEntity>);
static_assert(std::is_nothrow_move_constructible_v<TransformationEntity>);
static_assert(std::is_nothrow_move_assignable_v<TransformationEntity>);

template <typename T>
constexpr bool isStep = std::is_constructible_v<TransformationEntity, T, chem::MoleculeEntity>;

static_assert(isStep<chem::Modify> && isStep<chem::Unmodify>);
static_assert(isStep<chem::EstablishLink> && isStep<chem::ChainFragmenter>);
static_assert(!isStep<TransformationEntity> && !isStep<chem::Modification>);
static_assert(!isStep<chem::MoleculeEntity> && !isStep<int>);

/// A step of a caller's own: the base class is open.
struct Unchanged : public chem::Transformation
{
    chem::MoleculeEntity transform(chem::MoleculeEntity molecule) const override
    {
        return molecule;
    }
    chem::TransformationType type() const override { return chem::ModifyTransformation; }
};

/// A step of each kind that can be applied to start().
template <typename Step>
Step stepOf();

template <>
chem::Modify stepOf()
{
    return chem::Modify(phosphorylation());
}

template <>
chem::Unmodify stepOf()
{
    return chem::Unmodify(chem::Modification(3.0, {}));
}

template <>
chem::EstablishLink stepOf()
{
    return chem::EstablishLink(group(u"H-2"_s, -2.0), {{0, 1}, {0, 2}});
}

template <>
chem::ChainFragmenter stepOf()
{
    return chem::ChainFragmenter({{0, {u"piece"_s, 0, 1, 3}, 0}});
}

chem::MoleculeEntity start()
{
    return moleculeOf({letterChain(u"AKC"_s)}, {chem::Modification(3.0, {})});
}

template <typename Step>
class EachStep : public testing::Test
{
};

using Steps =
    testing::Types<chem::Modify, chem::Unmodify, chem::EstablishLink, chem::ChainFragmenter>;
TYPED_TEST_SUITE(EachStep, Steps, );

TYPED_TEST(EachStep, CopiesAndMovesApplyTheSame)
{
    TypeParam step = stepOf<TypeParam>();
    const chem::MoleculeEntity expected = step.transform(start());
    const TypeParam copy(step);
    const TypeParam moved(std::move(step));
    EXPECT_EQ(differences(copy.transform(start()), expected), "");
    EXPECT_EQ(differences(moved.transform(start()), expected), "");
    if constexpr (std::is_copy_assignable_v<TypeParam>) {
        TypeParam assigned = stepOf<TypeParam>();
        assigned = copy;
        EXPECT_EQ(differences(assigned.transform(start()), expected), "");
    }
}

TYPED_TEST(EachStep, EntryStandsWhereItsStepStandsAndHoldsTheMoleculeThatItWasGiven)
{
    const TypeParam step = stepOf<TypeParam>();
    TransformationEntity entry(step, 12.5);
    const chem::Transformation& base = entry;
    EXPECT_EQ(base.type(), step.type());
    EXPECT_EQ(differences(base.transform(start()), step.transform(start())), "");
    EXPECT_EQ(entry.original().averageMass(), 12.5);
}

TYPED_TEST(EachStep, EntriesAreCopiedAssignedAndMovedAsAWhole)
{
    TransformationEntity source(stepOf<TypeParam>(), 12.5);
    const TransformationEntity copy(source);
    TransformationEntity assigned(chem::Modify(1.0), 0);
    assigned = source;
    TransformationEntity moved(std::move(source));
    source = std::move(moved); // one that was moved from can be assigned to
    moved = source;
    for (const TransformationEntity* each :
         {&copy, &std::as_const(assigned), &std::as_const(moved), &std::as_const(source)})
        EXPECT_EQ(differences(*each, TransformationEntity(stepOf<TypeParam>(), 12.5)), "");
}

TEST(TransformationType, NumbersAreStable)
{
    EXPECT_EQ(stepOf<chem::Modify>().type(), 0);
    EXPECT_EQ(stepOf<chem::Unmodify>().type(), 1);
    EXPECT_EQ(stepOf<chem::EstablishLink>().type(), 5);
    EXPECT_EQ(stepOf<chem::ChainFragmenter>().type(), 7);
    EXPECT_EQ(chem::ModifyTransformation, 0);
    EXPECT_EQ(chem::UnmodifyTransformation, 1);
    EXPECT_EQ(chem::EstablishLinkTransformation, 5);
    EXPECT_EQ(chem::ChainFragmenterTransformation, 7);
}

TEST(Transformation, CallersCanDeriveAndCopySteps)
{
    const Unchanged step;
    Unchanged copy(step);
    copy = step;
    const chem::Transformation& base = copy;
    EXPECT_EQ(differences(base.transform(start()), start()), "");
}

TEST(TransformationEntity, RepeatsItsStepOnAnotherMoleculeAndStaysAsItIs)
{
    TransformationEntity entry(stepOf<chem::Modify>(), start());
    const chem::MoleculeEntity other = stepOf<chem::Modify>().transform(proteinOf(u"GG"_s));

    const chem::MoleculeEntity result = entry.transform(other);

    EXPECT_EQ(historyTypes(result), QList<int>({0, 0}));
    EXPECT_EQ(result.averageMass(), other.averageMass() + 80.0);
    EXPECT_EQ(differences(stateBefore(result, 1), other), "");
    EXPECT_EQ(differences(entry.original(), start()), "");
    EXPECT_EQ(entry.type(), 0);
}

} // namespace
