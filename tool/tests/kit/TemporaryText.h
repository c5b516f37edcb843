#pragma once

#include <QByteArray>
#include <QString>
#include <QTemporaryFile>

/// A file with this content for as long as the object lives.
class TemporaryText
{
public:
    explicit TemporaryText(const QByteArray& content)
    {
        if (m_file.open()) {
            m_file.write(content);
            m_file.close();
        }
    }

    QString name() const { return m_file.fileName(); }

private:
    QTemporaryFile m_file;
};
