#pragma once

#include "Molecule.h"
#include "support/CharacterTable.h"

#include <QChar>
#include <QMap>
#include <QString>

#include <vector>

namespace chem {

/// The entries of a dictionary that a single character names, numbered from 1 in the order of their
/// keys. Number 0 stands for any other character: an entry of no mass with empty texts.
class LetterTable
{
public:
    /// Takes the entries whose key is one character long; no other key can be written as a letter.
    explicit LetterTable(const QMap<QString, NamedMolecule>& dictionary);

    const NamedMolecule& entry(QChar letter) const { return m_entries[number(letter)]; }

    std::size_t number(QChar letter) const { return m_numbers.value(letter); }

    /// The letters in the order of their numbers.
    const QString& letters() const { return m_letters; }

private:
    QString m_letters;
    std::vector<NamedMolecule> m_entries{NamedMolecule()};
    CharacterTable<std::size_t> m_numbers;
};

} // namespace chem
