// Draws a measured spectrum of a peptide and names the peaks that its a, b and y ions explain.
//
//   annotated_spectrum SEQUENCE PEAKS.txt PPM FILE.svg
//
// PEAKS.txt holds m/z and intensity of one peak on each line; lines that start with # are skipped.

#include "../common/SpectrumFrame.h"
#include <ChemicalModel.h>

#include <QFile>
#include <QHash>
#include <QPointF>
#include <QTextStream>

#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;
using chem::FragmentType;

namespace {

const QHash<FragmentType, QString> series = {
    {FragmentType::A, u"a"_s}, {FragmentType::B, u"b"_s}, {FragmentType::Y, u"y"_s}};
const QHash<FragmentType, QString> colours = {{FragmentType::A, u"#2e7d4f"_s},
                                              {FragmentType::B, u"#1f5fa8"_s},
                                              {FragmentType::Y, u"#b03a2e"_s}};
const QString unexplained = u"#b0b0b0"_s;

/// An ion and the peak that it explains.
struct Annotation
{
    FragmentType type = FragmentType::Unknown;
    qsizetype number = 0;
    int charge = 1;
    QPointF peak; ///< m/z and intensity; an intensity of 0 says that there is none.
};

QList<QPointF> readPeaks(const QString& path)
{
    QFile file(path);
    QList<QPointF> peaks;
    if (!file.open(QIODevice::ReadOnly))
        return peaks;
    while (!file.atEnd()) {
        const QByteArray line = file.readLine().trimmed();
        const QList<QByteArray> columns = line.split(' ');
        if (!line.startsWith('#') && columns.size() == 2)
            peaks.append({columns[0].toDouble(), columns[1].toDouble()});
    }
    return peaks;
}

/// The highest peak within the tolerance of `mz`, or a peak of no intensity.
QPointF peakAt(const QList<QPointF>& peaks, double mz, double ppm)
{
    QPointF highest;
    for (const QPointF& peak : peaks) {
        if (std::abs(peak.x() - mz) <= mz * ppm / 1e6 && peak.y() > highest.y())
            highest = peak;
    }
    return highest;
}

/// The a, b and y ions of every bond with one charge and with two.
QList<Annotation> annotate(const QString& sequence, const QList<QPointF>& peaks, double ppm)
{
    const auto factory = chem::defaultChemicalFactory();
    const double proton = factory->constructMolecule(u"H"_s).monoMass() -
                          factory->constructMolecule(u"E"_s).monoMass();
    QList<chem::SimpleFragment> fragments;
    chem::generateLinearFragments(*factory->constructLinearPeptideComplex(sequence), fragments);
    QList<Annotation> annotations;
    for (const chem::SimpleFragment& fragment : std::as_const(fragments)) {
        const qsizetype number = fragment.sequence.size();
        if (!series.contains(fragment.type) || number == sequence.size())
            continue;
        for (const int charge : {1, 2}) {
            const double mz = (fragment.monoMass + charge * proton) / charge;
            annotations.append({fragment.type, number, charge, peakAt(peaks, mz, ppm)});
        }
    }
    return annotations;
}

bool isFound(const Annotation& annotation)
{
    return annotation.peak.y() > 0.0;
}

/// Tells how many of the ions of both ends were found with one charge.
QString title(const QString& sequence, const QList<Annotation>& annotations, double ppm)
{
    const auto isOfBothEnds = [](const Annotation& ion) {
        return ion.charge == 1 && ion.type != FragmentType::A;
    };
    const auto found =
        std::count_if(annotations.cbegin(), annotations.cend(),
                      [&](const Annotation& ion) { return isOfBothEnds(ion) && isFound(ion); });
    const auto all = std::count_if(annotations.cbegin(), annotations.cend(), isOfBothEnds);
    return u"%1: %2 of %3 b and y ions at 1+ within %4 ppm"_s.arg(sequence).arg(found).arg(all).arg(
        ppm);
}

QString label(const Annotation& ion)
{
    return series.value(ion.type) + QString::number(ion.number) +
           (ion.charge == 2 ? u"\u00b2\u207a"_s : QString());
}

void drawAnnotation(const Annotation& ion, double share, const SpectrumFrame& frame, Svg* svg)
{
    const QString colour = colours.value(ion.type);
    frame.drawPeak(ion.peak.x(), share, colour, 2, svg);
    svg->text(frame.x(ion.peak.x()), frame.y(share) - 5, label(ion), 12, u"middle"_s, colour);
}

bool draw(const QString& sequence, const QList<QPointF>& peaks, double ppm, const QString& path)
{
    const double highest = std::max_element(peaks.cbegin(), peaks.cend(),
                                            [](const QPointF& left, const QPointF& right) {
                                                return left.y() < right.y();
                                            })
                               ->y();
    const QList<Annotation> annotations = annotate(sequence, peaks, ppm);
    const SpectrumFrame frame(peaks.first().x() - 40, peaks.last().x() + 40);
    Svg svg(SpectrumFrame::width, SpectrumFrame::height);
    svg.text(SpectrumFrame::width / 2, 24, title(sequence, annotations, ppm), 16, u"middle"_s);
    frame.drawAxes(&svg);
    for (const QPointF& peak : peaks)
        frame.drawPeak(peak.x(), peak.y() / highest, unexplained, 1, &svg);
    for (const Annotation& ion : annotations) {
        if (isFound(ion))
            drawAnnotation(ion, ion.peak.y() / highest, frame, &svg);
    }
    return svg.save(path);
}

} // namespace

int main(int argc, char* argv[])
{
    QTextStream errors(stderr);
    if (argc != 5) {
        errors << "usage: annotated_spectrum SEQUENCE PEAKS.txt PPM FILE.svg\n";
        return 2;
    }
    const QList<QPointF> peaks = readPeaks(QString::fromLocal8Bit(argv[2]));
    if (peaks.isEmpty()) {
        errors << "there are no peaks in " << argv[2] << '\n';
        return 1;
    }
    if (!draw(QString::fromLocal8Bit(argv[1]), peaks, QString::fromLocal8Bit(argv[3]).toDouble(),
              QString::fromLocal8Bit(argv[4]))) {
        errors << "cannot write " << argv[4] << '\n';
        return 1;
    }
    return 0;
}
