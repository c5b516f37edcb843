#include "tables/DataFile.h"

#include <QFile>

using namespace Qt::StringLiterals;

namespace ions {

QList<QList<QString>> DataFile::rows() const
{
    QFile file(u":/zel_ion_model/"_s + m_name);
    const bool isOpen = file.open(QIODevice::ReadOnly);
    Q_ASSERT(isOpen);
    QList<QList<QString>> rows;
    const QString text = isOpen ? QString::fromUtf8(file.readAll()) : QString();
    for (const QString& line : text.split(u'\n', Qt::SkipEmptyParts)) {
        if (!line.startsWith(u'#'))
            rows.append(line.split(u'\t'));
    }
    return rows;
}

} // namespace ions
