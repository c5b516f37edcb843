#pragma once

#include <QByteArrayView>

namespace tool {

/// Writes to standard output at once. Where that is not possible the program ends: without a word
/// and with status 0 if nobody reads any more, else with a message and status 1.
void writeOut(QByteArrayView bytes);

/// Makes writing to a closed pipe fail, of which writeOut() knows, instead of ending the program.
void ignoreClosedPipes();

} // namespace tool
