#pragma once

#include <ChemicalModel.h>

#include <QList>
#include <QRegularExpression>
#include <QString>

#include <algorithm>

/// A peptide of a digest: its letters, and the position of the first, counted from 1.
struct Peptide
{
    QString sequence;
    qsizetype position;
};

/// Where a rule cuts, with both ends of the sequence.
inline QList<qsizetype> cutPlaces(const QString& sequence, const QRegularExpression& rule)
{
    QList<qsizetype> places = {0};
    QRegularExpressionMatchIterator matches = rule.globalMatch(sequence);
    while (matches.hasNext()) {
        const qsizetype place = matches.next().capturedStart();
        if (place > 0 && place < sequence.size())
            places.append(place);
    }
    places.append(sequence.size());
    return places;
}

/// Cuts a sequence by a rule that matches empty places, such as "(?<=[KR])(?!P)" for trypsin, with
/// up to `missed` cuts left out in a peptide.
inline QList<Peptide> digest(const QString& sequence, const QRegularExpression& rule,
                             qsizetype missed)
{
    QList<Peptide> peptides;
    const QList<qsizetype> places =
        sequence.isEmpty() ? QList<qsizetype>() : cutPlaces(sequence, rule);
    for (qsizetype i = 0; i + 1 < places.size(); ++i) {
        const qsizetype last = std::min(i + 1 + missed, places.size() - 1);
        for (qsizetype j = i + 1; j <= last; ++j)
            peptides.append({sequence.mid(places[i], places[j] - places[i]), places[i] + 1});
    }
    return peptides;
}

/// The positions of the letters that a factory does not know, counted from 1.
inline QList<qsizetype> unknownLetters(const QString& sequence,
                                       const chem::ChemicalFactory& factory)
{
    QList<QSharedPointer<const chem::AminoAcid>> residues;
    chem::NamedMolecule nTerminal;
    chem::NamedMolecule cTerminal;
    factory.parseAminoAcidSequence(sequence, &residues, &nTerminal, &cTerminal);
    QList<qsizetype> positions;
    for (qsizetype i = 0; i < residues.size(); ++i) {
        if (residues.at(i)->code.isEmpty())
            positions.append(i + 1);
    }
    return positions;
}
