#pragma once

#include <QList>
#include <QString>
#include <QTextStream>

#include <algorithm>
#include <vector>

/// A fragment spectrum: its precursor, and peaks of ascending m/z.
struct Spectrum
{
    QString title;
    QString knownSequence; ///< What a library says that it is; may be empty.
    int charge = 1;
    double precursor = 0.0; ///< m/z.
    std::vector<double> mz;
    std::vector<double> intensities; ///< Of the same peaks; the highest is 100.
};

/// Takes one line of an MGF file, which is a peak or names a property of the spectrum.
inline void readSpectrumLine(const QString& line, Spectrum* spectrum)
{
    const QString value = line.section(u'=', 1);
    if (line.startsWith(QStringLiteral("TITLE=")))
        spectrum->title = value;
    else if (line.startsWith(QStringLiteral("SEQ=")))
        spectrum->knownSequence = value;
    else if (line.startsWith(QStringLiteral("CHARGE=")))
        spectrum->charge = std::max(value.section(u'+', 0, 0).toInt(), 1);
    else if (line.startsWith(QStringLiteral("PEPMASS=")))
        spectrum->precursor = value.section(u' ', 0, 0).toDouble();
    else if (!line.isEmpty() && line.front().isDigit()) {
        spectrum->mz.push_back(line.section(u' ', 0, 0).toDouble());
        spectrum->intensities.push_back(line.section(u' ', 1).toDouble());
    }
}

/// Makes the highest peak 100.
inline void scaleIntensities(std::vector<double>* intensities)
{
    const auto highest = std::max_element(intensities->cbegin(), intensities->cend());
    const double scale = highest == intensities->cend() ? 1.0 : 100.0 / *highest;
    for (double& intensity : *intensities)
        intensity *= scale;
}

/// Reads the spectra of an MGF file.
inline QList<Spectrum> readSpectra(QTextStream& text)
{
    QList<Spectrum> spectra;
    QString line;
    while (text.readLineInto(&line)) {
        line = line.simplified();
        if (line == u"BEGIN IONS")
            spectra.append(Spectrum());
        else if (!spectra.isEmpty())
            readSpectrumLine(line, &spectra.last());
    }
    for (Spectrum& spectrum : spectra)
        scaleIntensities(&spectrum.intensities);
    return spectra;
}
