// Draws the isotope envelope of a peptide or protein at a charge as a spectrum.
//
//   envelope SEQUENCE CHARGE FILE.svg

#include "../common/Svg.h"
#include <ChemicalModel.h>

#include <QTextStream>

#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;

namespace {

constexpr double width = 900;
constexpr double height = 420;
constexpr double left = 70;
constexpr double right = 870;
constexpr double top = 60;
constexpr double bottom = 350;
constexpr double smallestShown = 0.002; ///< Peaks below this share of the highest are not drawn.
const QString axisColour = u"#555555"_s;
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

double xOf(const Spectrum& spectrum, double mz)
{
    return left + (right - left) * (mz - spectrum.firstMz) / (spectrum.lastMz - spectrum.firstMz);
}

double yOf(double share)
{
    return bottom - (bottom - top) * share;
}

/// The distance between ticks that gives about eight of them: 1, 2 or 5 times a power of ten.
double tickDistance(double span)
{
    const double rough = span / 8;
    const double power = std::pow(10.0, std::floor(std::log10(rough)));
    for (const double factor : {1.0, 2.0, 5.0}) {
        if (factor * power >= rough)
            return factor * power;
    }
    return 10 * power;
}

void drawAxes(const Spectrum& spectrum, Svg* svg)
{
    svg->line(left, bottom, right, bottom, axisColour);
    svg->line(left, top, left, bottom, axisColour);
    for (const int percent : {0, 25, 50, 75, 100}) {
        const double y = yOf(percent / 100.0);
        svg->line(left - 5, y, left, y, axisColour);
        svg->text(left - 9, y + 4, QString::number(percent), 12, u"end"_s);
    }
    const double distance = tickDistance(spectrum.lastMz - spectrum.firstMz);
    const int decimals = std::max(0, static_cast<int>(std::ceil(-std::log10(distance))));
    for (double mz = std::ceil(spectrum.firstMz / distance) * distance; mz < spectrum.lastMz;
         mz += distance) {
        svg->line(xOf(spectrum, mz), bottom, xOf(spectrum, mz), bottom + 5, axisColour);
        svg->text(xOf(spectrum, mz), bottom + 20, QString::number(mz, 'f', decimals), 12,
                  u"middle"_s);
    }
    svg->text((left + right) / 2, height - 14, u"m/z"_s, 14, u"middle"_s);
    svg->text(left, top - 12, u"relative intensity, %"_s, 12, u"start"_s);
}

void drawPeaks(const Spectrum& spectrum, Svg* svg)
{
    for (const QPointF& peak : spectrum.peaks) {
        const double x = xOf(spectrum, peak.x());
        svg->line(x, bottom, x, yOf(peak.y() / spectrum.highest), peakColour, 3);
        if (peak.y() == spectrum.highest)
            svg->text(x, top - 6, QString::number(peak.x(), 'f', 4), 12, u"middle"_s);
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

    Svg svg(width, height);
    const QString title = u"%1, %2, charge %3+"_s.arg(
        sequence.size() > 24 ? u"%1 residues"_s.arg(sequence.size()) : sequence,
        peptide->formula().toString(), QString::number(std::abs(charge)));
    svg.text(width / 2, 24, title, 16, u"middle"_s);
    drawAxes(spectrum, &svg);
    drawPeaks(spectrum, &svg);
    if (!svg.save(path)) {
        errors << "cannot write " << path << '\n';
        return 1;
    }
    return 0;
}
