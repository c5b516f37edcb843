#include "FileInput.h"
#include "Require.h"
#include "readers/Mgf.h"
#include "support/Number.h"

#include <algorithm>
#include <cmath>
#include <cstdint>

/// \file
/// Any bytes as an MGF file: what is handed over is finite and in order, and reads back from a file
/// that is written of it.

using namespace tool;

namespace {

void check(const Spectrum& spectrum)
{
    require(!spectrum.title.isEmpty(), "a spectrum has a title");
    require(std::isfinite(spectrum.precursor) && spectrum.precursor > 0.0,
            "a precursor has an m/z");
    const Peaks& peaks = spectrum.peaks;
    require(peaks.mz.size() == peaks.intensities.size(), "a peak has both numbers");
    require(std::is_sorted(peaks.mz.begin(), peaks.mz.end()), "peaks are in order");
    for (std::size_t i = 0; i < peaks.mz.size(); ++i) {
        require(std::isfinite(peaks.mz[i]) && peaks.mz[i] > 0.0, "m/z are above 0");
        require(std::isfinite(peaks.intensities[i]) && peaks.intensities[i] >= 0.0,
                "intensities are not below 0");
    }
}

QByteArray written(const Spectrum& spectrum)
{
    QByteArray text = "BEGIN IONS\nPEPMASS=" + numberText(spectrum.precursor) + '\n';
    for (const int charge : spectrum.charges) {
        text += (text.endsWith('\n') ? "CHARGE=" : " and ") + QByteArray::number(std::abs(charge)) +
                (charge < 0 ? '-' : '+');
    }
    text += '\n';
    for (std::size_t i = 0; i < spectrum.peaks.mz.size(); ++i) {
        text += numberText(spectrum.peaks.mz[i]) + '\t' +
                numberText(spectrum.peaks.intensities[i]) + '\n';
    }
    return text + "END IONS\n";
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const QByteArray bytes(reinterpret_cast<const char*>(data), qsizetype(size));
    for (const Spectrum& spectrum : recordsOf<Spectrum>(bytes, readMgf)) {
        check(spectrum);
        const auto again = recordsOf<Spectrum>(written(spectrum), readMgf);
        require(again.size() == 1, "a spectrum reads back");
        require(again[0].precursor == spectrum.precursor && again[0].charges == spectrum.charges,
                "its precursor reads back");
        require(again[0].peaks.mz == spectrum.peaks.mz &&
                    again[0].peaks.intensities == spectrum.peaks.intensities,
                "its peaks read back");
    }
    return 0;
}
