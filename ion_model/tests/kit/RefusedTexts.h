#pragma once

#include "TestPrinters.h"

/// A text that a reader refuses, and where.
struct RefusedText
{
    QString text;
    qsizetype position = 0;
    QString part; ///< Words of the message.
};

/// Expects that `read` refuses each text at its place, in words that hold the part.
template <typename Read, typename Texts>
void expectRefused(const Read& read, const Texts& texts)
{
    for (const RefusedText& refused : texts) {
        SCOPED_TRACE(refused.text.toStdString());
        const auto parsed = read(refused.text);
        ASSERT_FALSE(parsed.hasValue());
        EXPECT_EQ(parsed.error().position, refused.position);
        EXPECT_TRUE(parsed.error().message.contains(refused.part))
            << parsed.error().message.toStdString();
    }
}
