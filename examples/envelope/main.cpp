// Draws the isotope envelope of a peptide or protein at a charge as a spectrum.
//
//   envelope SEQUENCE CHARGE FILE.svg

#include "../common/SpectrumFrame.h"
#include <ChemicalModel.h>

#include <QTextStream>

#include <algorithm>
#include <cstdlib>
#include <iterator>

using namespace Qt::StringLiterals;

namespace {

constexpr double smallestShown = 0.002; ///< Peaks below this share of the highest are not drawn.
const QString peakColour = u"#1f5fa8"_s;

struct Spectrum
{
    QList<QPointF> peaks;
    double highest = 0.0;
    double firstMz = 0.0;
    double lastMz = 0.0;
};

Spectrum spectrumOf(const QList<QPointF>& envelope)
{
    Spectrum spectrum;
    for (const QPointF& point : envelope)
        spectrum.highest = std::max(spectrum.highest, point.y());
    std::copy_if(envelope.cbegin(), envelope.cend(), std::back_inserter(spectrum.peaks),
                 [&](const QPointF& p) { return p.y() > smallestShown * spectrum.highest; });
    if (spectrum.peaks.isEmpty())
        return spectrum;
    const double span = spectrum.peaks.last().x() - spectrum.peaks.first().x();
    const double margin = std::max(0.08 * span, 0.2);
    spectrum.firstMz = spectrum.peaks.first().x() - margin;
    spectrum.lastMz = spectrum.peaks.last().x() + margin;
    return spectrum;
}

void drawPeaks(const Spectrum& spectrum, const SpectrumFrame& frame, Svg* svg)
{
    for (const QPointF& peak : spectrum.peaks) {
        frame.drawPeak(peak.x(), peak.y() / spectrum.highest, peakColour, 3, svg);
        if (peak.y() == spectrum.highest) {
            svg->text(frame.x(peak.x()), SpectrumFrame::top - 6, QString::number(peak.x(), 'f', 4),
                      12, u"middle"_s);
        }
    }
}

} // namespace

int main(int argc, char* argv[])
{
    QTextStream errors(stderr);
    if (argc != 4) {
        errors << "usage: envelope SEQUENCE CHARGE FILE.svg\n";
        return 2;
    }
    const QString sequence = QString::fromLocal8Bit(argv[1]);
    const int charge = QString::fromLocal8Bit(argv[2]).toInt();
    const QString path = QString::fromLocal8Bit(argv[3]);

    const auto factory = chem::defaultChemicalFactory();
    const auto peptide = factory->constructLinearPeptideComplex(sequence);
    QList<QPointF> envelope;
    factory->generateIsotopeEnvelope(*peptide, charge, &envelope, true);
    const Spectrum spectrum = spectrumOf(envelope);
    if (spectrum.peaks.isEmpty()) {
        errors << "no configuration is likely enough to be drawn\n";
        return 1;
    }

    Svg svg(SpectrumFrame::width, SpectrumFrame::height);
    const QString title = u"%1, %2, charge %3+"_s.arg(
        sequence.size() > 24 ? u"%1 residues"_s.arg(sequence.size()) : sequence,
        peptide->formula().toString(), QString::number(std::abs(charge)));
    svg.text(SpectrumFrame::width / 2, 24, title, 16, u"middle"_s);
    const SpectrumFrame frame(spectrum.firstMz, spectrum.lastMz);
    frame.drawAxes(&svg);
    drawPeaks(spectrum, frame, &svg);
    if (!svg.save(path)) {
        errors << "cannot write " << path << '\n';
        return 1;
    }
    return 0;
}
