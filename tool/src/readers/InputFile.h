#pragma once

#include "readers/LineReader.h"
#include "support/Complaints.h"

#include <QFile>
#include <QString>
#include <QStringList>

#include <functional>
#include <optional>
#include <utility>
#include <vector>

namespace tool {

/// Opens a file, or standard input for `-`, and hands its lines to `read`. A file that cannot be
/// read is reported.
void withLines(const QString& name, Complaints* complaints,
               const std::function<void(const QString& source, LineReader* lines)>& read);

/// What `read` hands on from the lines of a file, one item after the other.
template <typename Item>
std::vector<Item> readItems(const QString& name, Complaints* complaints,
                            void (*read)(const QString& source, LineReader* lines,
                                         Complaints* complaints,
                                         const std::function<void(Item&&)>& take))
{
    std::vector<Item> items;
    withLines(name, complaints, [&](const QString& source, LineReader* lines) {
        read(source, lines, complaints, [&](Item&& item) { items.push_back(std::move(item)); });
    });
    return items;
}

/// Hands each text to `take` with its place: arguments as they are, the lines of FILE for `@FILE`,
/// those of standard input for `-`. One that is not all UTF-8 is reported instead.
void forEachText(const QStringList& arguments, Complaints* complaints,
                 const std::function<void(const Place& place, const QString& text)>& take);

/// The only text of an argument, which may be a file of one line. Nothing if it could not be read
/// or holds several, which is reported.
std::optional<std::pair<Place, QString>> onlyText(const QString& argument, Complaints* complaints);

} // namespace tool
