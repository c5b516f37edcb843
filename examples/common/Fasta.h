#pragma once

#include <QList>
#include <QString>
#include <QTextStream>

//! [Fasta]
/// A protein of a FASTA file: the first word of its heading and its letters.
struct FastaEntry
{
    QString name;
    QString sequence;
};

/// Appends letters to the last protein; one without a heading has no name.
inline void appendLetters(const QString& letters, QList<FastaEntry>* entries)
{
    if (entries->isEmpty() && !letters.isEmpty())
        entries->append(FastaEntry());
    if (!entries->isEmpty())
        entries->last().sequence += letters;
}

/// Reads FASTA text. Letters become capitals; blanks, line ends of any system, comments and the
/// stop mark at the end go. All else stays, for unknownLetters() to find.
inline QList<FastaEntry> readFasta(QTextStream& text)
{
    QList<FastaEntry> entries;
    QString line;
    while (text.readLineInto(&line)) {
        line = line.simplified();
        if (line.startsWith(u'>'))
            entries.append({line.sliced(1).section(u' ', 0, 0), QString()});
        else if (!line.startsWith(u';'))
            appendLetters(line.remove(u' ').toUpper(), &entries);
    }
    for (FastaEntry& entry : entries) {
        if (entry.sequence.endsWith(u'*'))
            entry.sequence.chop(1);
    }
    return entries;
}
//! [Fasta]
