#include "Logging.h"

#include <gtest/gtest.h>

#include <string>

namespace {

TEST(Logging, UnknownNameFallsBackToTheDefaultCategory)
{
    const QLoggingCategory* category = chem::existingLoggingCategory("zel.never", QtDebugMsg);
    EXPECT_STREQ(category->categoryName(), "zel.generic");
}

TEST(Logging, NamesAreComparedByContent)
{
    static const std::string first = "zel.test";
    static const std::string second = "zel.test";
    ASSERT_NE(first.c_str(), second.c_str());
    EXPECT_EQ(chem::createLoggingCategory(first.c_str(), QtDebugMsg),
              chem::createLoggingCategory(second.c_str(), QtDebugMsg));
}

} // namespace
