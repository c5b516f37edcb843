#pragma once

#include "readers/LineReader.h"
#include "support/Complaints.h"

#include <QBuffer>
#include <QByteArray>
#include <QString>

#include <vector>

/// What a reader hands over of a file that holds these bytes.
template <typename Record, typename Reader>
std::vector<Record> recordsOf(QByteArray bytes, Reader read)
{
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::ReadOnly);
    tool::LineReader lines(&buffer);
    tool::Complaints complaints;
    std::vector<Record> records;
    read(QStringLiteral("file"), &lines, &complaints,
         [&](Record&& record) { records.push_back(std::move(record)); });
    return records;
}
