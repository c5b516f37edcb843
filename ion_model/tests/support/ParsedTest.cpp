#include "Parsed.h"

#include <QString>

#include <gtest/gtest.h>

#include <memory>

namespace {

using namespace Qt::StringLiterals;
using namespace ions;

const Error refused{u"expected a number"_s, 3};

TEST(Parsed, HoldsAValue)
{
    const Parsed<QString> name(u"Oxidation"_s);
    EXPECT_TRUE(name.hasValue());
    EXPECT_TRUE(name);
    EXPECT_EQ(name.value(), u"Oxidation");
    EXPECT_EQ(*name, u"Oxidation");
    EXPECT_EQ(name->size(), 9);
    EXPECT_EQ(name.valueOr(u"other"_s), u"Oxidation");
}

TEST(Parsed, HoldsARefusal)
{
    const Parsed<QString> name(refused);
    EXPECT_FALSE(name.hasValue());
    EXPECT_FALSE(name);
    EXPECT_EQ(name.error(), refused);
    EXPECT_EQ(name.error().chain, -1);
    EXPECT_EQ(name.error().residue, -1);
    EXPECT_EQ(name.valueOr(u"other"_s), u"other");
}

TEST(Parsed, ThrowsWhenAskedForWhatIsNotThere)
{
    EXPECT_THROW(static_cast<void>(Parsed<int>(refused).value()), std::bad_variant_access);
    EXPECT_THROW(static_cast<void>(Parsed<int>(1).error()), std::bad_variant_access);
}

TEST(Parsed, GivesAwayAValueThatCannotBeCopied)
{
    Parsed<std::unique_ptr<int>> number(std::make_unique<int>(5));
    const std::unique_ptr<int> taken = *std::move(number);
    EXPECT_EQ(*taken, 5);
}

TEST(Parsed, ComparesErrorsByAllTheirFields)
{
    EXPECT_EQ(refused, refused);
    EXPECT_NE(refused, (Error{u"expected a letter"_s, 3}));
    EXPECT_NE(refused, (Error{refused.message, 4}));
    EXPECT_NE(refused, (Error{refused.message, 3, 0}));
    EXPECT_NE(refused, (Error{refused.message, 3, -1, 0}));
}

} // namespace
