#pragma once

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QString>

/// The rows of a file of figures that other programs or the literature give. The data lies beside
/// the tests; the build passes the folder.
inline QJsonArray referenceRows(const QString& fileName)
{
    QFile file(QStringLiteral(REFERENCE_DATA_DIR) + u'/' + fileName);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    return QJsonDocument::fromJson(file.readAll()).array();
}
