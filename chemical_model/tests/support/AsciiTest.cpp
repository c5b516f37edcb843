#include "support/Ascii.h"

#include <QString>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

/// The characters of which `is` says yes.
QString all(bool (*is)(QChar))
{
    QString found;
    for (int unicode = 0; unicode <= 0xffff; ++unicode) {
        if (is(QChar(unicode)))
            found += QChar(unicode);
    }
    return found;
}

TEST(Ascii, DigitsAreTheTenOfAscii)
{
    EXPECT_EQ(all(chem::isAsciiDigit).toStdString(), "0123456789");
}

TEST(Ascii, BlanksAreThoseThatExpressionsHave)
{
    EXPECT_EQ(all(chem::isAsciiBlank).toStdString(), "\t\n\v\f\r ");
}

} // namespace
