#pragma once

#include <QByteArrayView>
#include <QString>

namespace tool {

/// The name that bytes of a file spell. Those that are no UTF-8 stand as `%E9`: what they mean is
/// not known, and what bears the name is worth keeping.
QString nameOf(QByteArrayView bytes);

} // namespace tool
