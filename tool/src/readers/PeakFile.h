#pragma once

#include "readers/LineReader.h"
#include "readers/Spectrum.h"

#include <QString>

#include <functional>
#include <vector>

namespace tool {

/// Reads peaks from any bytes and hands over each spectrum: MGF, or one spectrum as two columns,
/// m/z and intensity, with or without a line of names on top. Columns are refused as a whole at
/// their first line that is no peak.
void readPeaks(const QString& source, LineReader* lines, Complaints* complaints,
               const std::function<void(Spectrum&&)>& take);

/// The spectra of a file, or of standard input for `-`.
std::vector<Spectrum> readPeakFile(const QString& name, Complaints* complaints);

} // namespace tool
