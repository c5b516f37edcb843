#pragma once

#include "readers/LineReader.h"
#include "readers/Spectrum.h"
#include <Parsed.h>

#include <QByteArrayView>
#include <QString>

#include <functional>
#include <vector>

namespace tool {

/// Reads MGF from any bytes and hands over each spectrum. `CHARGE=` in front of the first spectrum
/// holds for those that state none; keys that mean nothing here are passed over. Lines that start
/// with `#`, `;`, `!` or `/` are remarks.
///
/// A spectrum is reported, and not handed over, where it has no PEPMASS above 0 or two of them,
/// where a charge or a peak cannot be read, as with an intensity that is NaN or a decimal comma,
/// and where it does not end. Whatever stands outside and is no `KEY=value` is reported as well.
/// Spectra count from 1, those that are refused too. A file without any is reported.
void readMgf(const QString& source, LineReader* lines, Complaints* complaints,
             const std::function<void(Spectrum&&)>& take);

/// The spectra of a file, or of standard input for `-`.
std::vector<Spectrum> readMgfFile(const QString& name, Complaints* complaints);

/// Charges such as `2+`, `3`, `1-`, `2+ and 3+` or `2+,3+`.
ions::Parsed<std::vector<int>> readCharges(QByteArrayView text);

} // namespace tool
