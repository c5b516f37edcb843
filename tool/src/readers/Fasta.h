#pragma once

#include "readers/LineReader.h"
#include "support/Complaints.h"

#include <QString>

#include <functional>
#include <vector>

namespace tool {

/// A protein, or an RNA, of a FASTA file.
struct Sequence
{
    QString name;    ///< The first word of its header, as nameOf() has it.
    QString letters; ///< In capitals, without blanks and the stop mark at the end.
    Place place;     ///< Where its header stands.
};

/// Reads FASTA from any bytes and hands over each sequence. Lines that start with `;` are remarks.
///
/// What a sequence holds beside ASCII letters, `*` and `-` is reported, as are headers without a
/// name, sequences without letters, letters in front of the first header, and a file that holds
/// nothing. What was reported is not handed over; all else is.
void readFasta(const QString& source, LineReader* lines, Complaints* complaints,
               const std::function<void(Sequence&&)>& take);

/// The sequences of a file, or of standard input for `-`.
std::vector<Sequence> readFastaFile(const QString& name, Complaints* complaints);

} // namespace tool
