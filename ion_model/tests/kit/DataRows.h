#pragma once

#include <QFile>
#include <QList>
#include <QString>
#include <QStringList>

#include <gtest/gtest.h>

/// The rows of one of the library's data files, texts separated by tabs, read here by other means
/// than the library's own.
inline QList<QStringList> dataRows(const QString& name)
{
    QFile file(QStringLiteral(ION_MODEL_DATA_DIR) + QLatin1Char('/') + name);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    const QStringList lines = QString::fromUtf8(file.readAll()).split(QLatin1Char('\n'));
    QList<QStringList> rows;
    for (const QString& line : lines) {
        if (!line.isEmpty() && !line.startsWith(QLatin1Char('#')))
            rows.append(line.split(QLatin1Char('\t')));
    }
    return rows;
}
