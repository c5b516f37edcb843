#pragma once

#include <QLatin1StringView>
#include <QStringView>
#include <QtGlobal>

namespace ions {

/// The atomic number of the element with this symbol, or 0. Case counts.
quint8 atomicNumberOf(QStringView symbol);

/// The symbol of the element with this atomic number; empty for 0 and beyond 118.
QLatin1StringView symbolOf(quint8 atomicNumber);

/// How many characters at the start of `text` are the symbol of an element: the longest that is
/// one, or 0.
qsizetype symbolLength(QStringView text);

} // namespace ions
