#pragma once

#include <QList>
#include <QString>

namespace ions {

/// One of the tables that the library carries: lines of texts separated by tabs. Lines that start
/// with "#" tell what a file holds and where it is from.
class DataFile
{
public:
    explicit DataFile(const QString& name)
        : m_name(name)
    {
    }

    /// The rows of the file, each with all its texts.
    QList<QList<QString>> rows() const;

private:
    QString m_name;
};

} // namespace ions
