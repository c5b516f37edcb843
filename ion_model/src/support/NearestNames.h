#pragma once

#include <QStringList>
#include <QStringView>

namespace ions {

/// The names that are spelled most like `wanted`, nearest first, each once, whatever their case:
/// for messages. At most `count`, none if that is below 1, and none of those from which more than
/// half of the text would have to change; only the first 100 characters of the text count.
QStringList nearestNames(QStringView wanted, const QStringList& names, qsizetype count = 3);

} // namespace ions
