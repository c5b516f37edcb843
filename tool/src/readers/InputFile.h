#pragma once

#include "readers/LineReader.h"
#include "support/Complaints.h"

#include <QFile>
#include <QString>
#include <QStringList>

#include <functional>
#include <optional>
#include <utility>

namespace tool {

/// Opens a file, or standard input for `-`, and hands its lines to `read`. A file that cannot be
/// read is reported.
void withLines(const QString& name, Complaints* complaints,
               const std::function<void(const QString& source, LineReader* lines)>& read);

/// Hands each text to `take` with its place: arguments as they are, the lines of FILE for `@FILE`,
/// those of standard input for `-`.
void forEachText(const QStringList& arguments, Complaints* complaints,
                 const std::function<void(const Place& place, const QString& text)>& take);

/// The only text of an argument, which may be a file of one line. Nothing if it could not be read
/// or holds several, which is reported.
std::optional<std::pair<Place, QString>> onlyText(const QString& argument, Complaints* complaints);

} // namespace tool
