#pragma once

#include <QList>
#include <QString>

#include <gtest/gtest.h>

#include <ostream>

/// Lets GoogleTest print texts as text when an expectation fails.
inline void PrintTo(const QString& text, std::ostream* stream)
{
    *stream << '"' << text.toStdString() << '"';
}
