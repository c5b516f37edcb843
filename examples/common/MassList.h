#pragma once

#include <QFile>
#include <QList>

#include <algorithm>

/// Reads a file of masses in daltons, one on each line, in ascending order. Lines that hold no
/// number are skipped; a file that cannot be read gives no masses.
inline QList<double> readMassList(const QString& path)
{
    QFile file(path);
    QList<double> masses;
    if (!file.open(QIODevice::ReadOnly))
        return masses;
    while (!file.atEnd()) {
        bool isNumber = false;
        const double mass = file.readLine().trimmed().toDouble(&isNumber);
        if (isNumber)
            masses.append(mass);
    }
    std::sort(masses.begin(), masses.end());
    return masses;
}
