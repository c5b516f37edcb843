#include "FileInput.h"
#include "PeakLaws.h"
#include "Require.h"
#include "readers/Mgf.h"
#include "support/Number.h"

#include <cmath>
#include <cstdint>

/// \file
/// Any bytes as an MGF file: what is handed over is finite and in order, and reads back from a file
/// that is written of it.

using namespace tool;

namespace {

QByteArray written(const Spectrum& spectrum)
{
    QByteArray text = "BEGIN IONS\nPEPMASS=" + numberText(spectrum.precursor) + '\n';
    for (const int charge : spectrum.charges) {
        text += (text.endsWith('\n') ? "CHARGE=" : " and ") + QByteArray::number(std::abs(charge)) +
                (charge < 0 ? '-' : '+');
    }
    text += '\n';
    return text + columnsOf(spectrum.peaks) + "END IONS\n";
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const QByteArray bytes(reinterpret_cast<const char*>(data), qsizetype(size));
    for (const Spectrum& spectrum : recordsOf<Spectrum>(bytes, readMgf)) {
        require(!spectrum.title.isEmpty(), "a spectrum has a title");
        require(std::isfinite(spectrum.precursor) && spectrum.precursor > 0.0,
                "a precursor has an m/z");
        requireSound(spectrum.peaks);
        const auto again = recordsOf<Spectrum>(written(spectrum), readMgf);
        require(again.size() == 1, "a spectrum reads back");
        require(again[0].precursor == spectrum.precursor && again[0].charges == spectrum.charges,
                "its precursor reads back");
        requireEqual(again[0].peaks, spectrum.peaks);
    }
    return 0;
}
