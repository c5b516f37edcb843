#include "Logging.h"

#include <gtest/gtest.h>

#include <string>

namespace {

TEST(Logging, UnknownNameFallsBackToTheDefaultCategory)
{
    const QLoggingCategory* category = chem::existingLoggingCategory("zel.never", QtDebugMsg);
    EXPECT_STREQ(category->categoryName(), "zel.generic");
    EXPECT_EQ(category, chem::existingLoggingCategory("zel.generic", QtDebugMsg));
}

TEST(Logging, NamesAreComparedByContent)
{
    static const std::string first = "zel.test";
    static const std::string second = "zel.test";
    ASSERT_NE(first.c_str(), second.c_str());
    const QLoggingCategory* category = chem::createLoggingCategory(first.c_str(), QtDebugMsg);
    EXPECT_EQ(category, chem::createLoggingCategory(second.c_str(), QtDebugMsg));
    EXPECT_EQ(category, chem::existingLoggingCategory(second.c_str(), QtDebugMsg));
    EXPECT_STREQ(category->categoryName(), "zel.test");
}

TEST(Logging, SeverityCountsWhenACategoryIsMade)
{
    const QLoggingCategory* category = chem::createLoggingCategory("zel.severe", QtWarningMsg);
    EXPECT_FALSE(category->isDebugEnabled());
    EXPECT_TRUE(category->isWarningEnabled());
    chem::createLoggingCategory("zel.severe", QtDebugMsg);
    EXPECT_FALSE(category->isDebugEnabled());
}

TEST(Logging, DefaultCategoryLetsDebugMessagesThrough)
{
    const QLoggingCategory* category = chem::existingLoggingCategory("zel.generic", QtCriticalMsg);
    EXPECT_TRUE(category->isDebugEnabled());
    EXPECT_TRUE(category->isWarningEnabled());
}

} // namespace
