#pragma once

#include <QByteArray>
#include <QFile>
#include <QString>

/// A file of these tests, by its path below their folder.
inline QString testFile(const QString& path)
{
    return QStringLiteral(ZEL_TEST_DIR "/") + path;
}

/// What it holds; nothing if it cannot be read.
inline QByteArray contentOf(const QString& path)
{
    QFile file(testFile(path));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}
