#pragma once

#include "TestPrinters.h"

#include <QStringList>

#include <gtest/gtest.h>

#include <random>

/// \file
/// Texts for comparing two readers: drawn from a test's own random numbers, and all short ones.

namespace drawnTexts {

/// A number from 0 up to but not including `end`.
inline qsizetype draw(qsizetype end, std::mt19937& random)
{
    return static_cast<qsizetype>(random()) % end;
}

template <typename List>
auto anyOf(const List& list, std::mt19937& random)
{
    return list[draw(static_cast<qsizetype>(list.size()), random)];
}

/// Calls `compare` with every text of at most `longest` of the letters, the shorter ones first,
/// until an expectation fails. Gives the number of texts.
template <typename Compare>
int forAllTexts(const QString& letters, qsizetype longest, const Compare& compare)
{
    QStringList texts = {QString()};
    qsizetype next = 0;
    for (; next < texts.size() && !testing::Test::HasFailure(); ++next) {
        const QString text = texts[next];
        SCOPED_TRACE(text.toStdString());
        compare(text);
        for (qsizetype i = 0; text.size() < longest && i < letters.size(); ++i)
            texts.append(text + letters[i]);
    }
    return static_cast<int>(next);
}

} // namespace drawnTexts
