#pragma once

#include "readers/Spectrum.h"

#include <QString>

#include <vector>

namespace tool {

/// The spectra of a file of peaks: MGF, or one spectrum as two columns, m/z and intensity, with or
/// without a line of names on top. A file of columns is refused as a whole at its first line that
/// is no peak.
std::vector<Spectrum> readPeakFile(const QString& name, Complaints* complaints);

} // namespace tool
