#include "support/Logging.h"

#include <gtest/gtest.h>

#include <string>

namespace {

using chem::createLoggingCategory;
using chem::existingLoggingCategory;
using chem::loggingCategory;

// Asked during static initialisation, as the sources do that log.
const QLoggingCategory* const earlyCategory = existingLoggingCategory("zel.early", QtDebugMsg);

TEST(Logging, TheDefaultCategoryExistsWithoutHavingBeenMade)
{
    ASSERT_NE(earlyCategory, nullptr);
    EXPECT_STREQ(earlyCategory->categoryName(), "zel.generic");
}

TEST(Logging, TheDefaultCategoryIsOneObject)
{
    EXPECT_EQ(existingLoggingCategory("zel.generic", QtDebugMsg), earlyCategory);
    EXPECT_EQ(createLoggingCategory("zel.generic", QtDebugMsg), earlyCategory);
    EXPECT_EQ(loggingCategory("zel.generic", QtDebugMsg, false), earlyCategory);
    EXPECT_EQ(loggingCategory("zel.generic", QtDebugMsg, true), earlyCategory);
}

TEST(Logging, UnknownNameFallsBackToTheDefaultCategory)
{
    EXPECT_EQ(existingLoggingCategory("zel.never", QtDebugMsg), earlyCategory);
}

TEST(Logging, LookingForAnUnknownNameDoesNotMakeIt)
{
    EXPECT_EQ(existingLoggingCategory("zel.asked", QtDebugMsg), earlyCategory);
    EXPECT_EQ(existingLoggingCategory("zel.asked", QtDebugMsg), earlyCategory);
}

TEST(Logging, MakingAnUnknownNameGivesItsOwnCategory)
{
    const QLoggingCategory* made = createLoggingCategory("zel.made", QtDebugMsg);
    EXPECT_NE(made, earlyCategory);
    EXPECT_STREQ(made->categoryName(), "zel.made");
    EXPECT_EQ(existingLoggingCategory("zel.made", QtDebugMsg), made);
}

TEST(Logging, NamesAreComparedByContent)
{
    static const std::string first = "zel.test";
    static const std::string second = "zel.test";
    ASSERT_NE(first.c_str(), second.c_str());
    EXPECT_EQ(createLoggingCategory(first.c_str(), QtDebugMsg),
              createLoggingCategory(second.c_str(), QtDebugMsg));
}

TEST(Logging, NamesAreCaseSensitive)
{
    EXPECT_NE(createLoggingCategory("zel.letters", QtDebugMsg),
              createLoggingCategory("zel.Letters", QtDebugMsg));
}

TEST(Logging, TheNameIsKeptAndNotCopied)
{
    static const char name[] = "zel.kept";
    EXPECT_EQ(createLoggingCategory(name, QtDebugMsg)->categoryName(), name);
}

TEST(Logging, DebugMessagesOfTheDefaultCategoryAreEnabled)
{
    EXPECT_TRUE(earlyCategory->isDebugEnabled());
    EXPECT_TRUE(earlyCategory->isInfoEnabled());
    EXPECT_TRUE(earlyCategory->isWarningEnabled());
    EXPECT_TRUE(earlyCategory->isCriticalEnabled());
}

TEST(Logging, TheSeverityIsWhatIsEnabledFromThereOn)
{
    const QLoggingCategory* category = createLoggingCategory("zel.quiet", QtWarningMsg);
    EXPECT_FALSE(category->isDebugEnabled());
    EXPECT_FALSE(category->isInfoEnabled());
    EXPECT_TRUE(category->isWarningEnabled());
    EXPECT_TRUE(category->isCriticalEnabled());
}

TEST(Logging, TheSeverityOfALaterCallChangesNothing)
{
    const QLoggingCategory* category = createLoggingCategory("zel.first", QtWarningMsg);
    EXPECT_EQ(createLoggingCategory("zel.first", QtDebugMsg), category);
    EXPECT_EQ(existingLoggingCategory("zel.first", QtDebugMsg), category);
    EXPECT_FALSE(category->isDebugEnabled());

    createLoggingCategory("zel.generic", QtCriticalMsg);
    existingLoggingCategory("zel.never", QtCriticalMsg);
    EXPECT_TRUE(earlyCategory->isDebugEnabled());
}

} // namespace
