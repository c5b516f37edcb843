#include "FileInput.h"
#include "PeakLaws.h"
#include "Require.h"
#include "readers/PeakFile.h"

#include <cstdint>

/// \file
/// Any bytes as a file of peaks, MGF or two columns: what is handed over is finite and in order,
/// and reads back from two columns that are written of it.

using namespace tool;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const QByteArray bytes(reinterpret_cast<const char*>(data), qsizetype(size));
    for (const Spectrum& spectrum : recordsOf<Spectrum>(bytes, readPeaks)) {
        requireSound(spectrum.peaks);
        if (spectrum.peaks.mz.empty())
            continue;
        const auto again = recordsOf<Spectrum>(columnsOf(spectrum.peaks), readPeaks);
        require(again.size() == 1, "columns are one spectrum");
        requireEqual(again[0].peaks, spectrum.peaks);
    }
    return 0;
}
