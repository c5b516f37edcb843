#pragma once

#include <ChemicalModel.h>

#include <QList>
#include <QPointF>
#include <QString>
#include <QTextStream>

#include <algorithm>

/// Hydrogen without its electron, in daltons.
inline double protonMass(const chem::ChemicalFactory& factory)
{
    return factory.constructMolecule(QStringLiteral("H")).monoMass() -
           factory.constructMolecule(QStringLiteral("E")).monoMass();
}

/// A fragment spectrum: its precursor, and peaks of ascending m/z with their intensities.
struct Spectrum
{
    QString title;
    QString knownSequence; ///< What a library says that it is; may be empty.
    int charge = 1;
    double precursor = 0.0; ///< m/z.
    QList<QPointF> peaks;

    /// The monoisotopic mass of the precursor without its protons.
    double neutralMass(const chem::ChemicalFactory& factory) const
    {
        return charge * (precursor - protonMass(factory));
    }

    double intensity() const
    {
        double sum = 0.0;
        for (const QPointF& peak : peaks)
            sum += peak.y();
        return sum;
    }
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
    else if (!line.isEmpty() && line.front().isDigit())
        spectrum->peaks.append(
            {line.section(u' ', 0, 0).toDouble(), line.section(u' ', 1).toDouble()});
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
    return spectra;
}
