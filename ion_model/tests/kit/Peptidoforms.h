#pragma once

#include "PeptidoformLaws.h"
#include "TestPrinters.h"

#include <QString>

#include <gtest/gtest.h>

namespace ions {

/// The peptidoform of a text that is known to be right.
inline Peptidoform peptidoform(const QString& text)
{
    const Parsed<Peptidoform> read = Peptidoform::read(text);
    EXPECT_TRUE(read.hasValue()) << text.toStdString() << ": "
                                 << (read ? "" : read.error().message.toStdString());
    return read.valueOr({});
}

/// What the first ion of a text weighs.
inline Parsed<PeptidoformWeight> weightOf(const QString& text)
{
    return peptidoform(text).weigh(0, naturalResidues(), standardModifications());
}

inline double monoisotopic(const QString& text)
{
    const Parsed<PeptidoformWeight> weight = weightOf(text);
    EXPECT_TRUE(weight.hasValue())
        << text.toStdString() << ": " << (weight ? "" : weight.error().message.toStdString());
    return weight ? weight->masses.monoisotopic : 0.0;
}

inline QString compositionText(const QString& text)
{
    return weightOf(text)->composition.value().toString();
}

inline double mz(const QString& text)
{
    return weightOf(text)->mz.monoisotopic;
}

} // namespace ions
