#include "support/Complaints.h"

#include "support/Table.h"

#include <algorithm>
#include <cstdio>

namespace tool {

void Complaints::report(const Place& place, const ions::Error& error)
{
    m_areThere = true;
    const QByteArray line = escaped(place.source.toUtf8()) + ':' + QByteArray::number(place.line) +
                            ':' + QByteArray::number(std::max(error.position, qsizetype(0))) +
                            ": " + escaped(error.message.toUtf8()) + '\n';
    std::fwrite(line.constData(), 1, std::size_t(line.size()), stderr);
}

} // namespace tool
