#pragma once

#include <QLoggingCategory>

namespace chem {

/// Finds the logging category `name`. The first call of all makes "zel.generic", so that a default
/// exists. An unknown name is made with `severity` if `create` is true and else answered with
/// "zel.generic". The pointer `name` is kept, so it must have static storage.
///
/// Categories are made during static initialisation, which is single-threaded; afterwards the
/// registry is only searched, so it has no lock.
const QLoggingCategory* loggingCategory(const char* name, QtMsgType severity, bool create);

/// The category `name`, made with `severity` if there is none yet. For static initialisation only.
inline const QLoggingCategory* createLoggingCategory(const char* name, QtMsgType severity)
{
    return loggingCategory(name, severity, true);
}

/// The category `name`, or "zel.generic" if there is none of that name.
inline const QLoggingCategory* existingLoggingCategory(const char* name, QtMsgType severity)
{
    return loggingCategory(name, severity, false);
}

/// The category of all messages of this library, "zel.generic".
const QLoggingCategory& genericCategory();

} // namespace chem
