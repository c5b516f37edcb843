#pragma once

#include "Molecule.h"

#include <QChar>
#include <QHash>
#include <QMap>
#include <QString>

#include <array>
#include <vector>

namespace chem {

/// The entries of a dictionary that a single character names, numbered from 1 in the order of their
/// keys. Number 0 stands for any other character: an entry of no mass with empty texts.
///
/// An array takes the place of the map for ASCII: a look-up by text costs as much as everything
/// else that is done for a residue (measured: 96 against 1.3 ns).
class LetterTable
{
public:
    /// Takes the entries whose key is one character long; no other key can be written as a letter.
    explicit LetterTable(const QMap<QString, NamedMolecule>& dictionary);

    const NamedMolecule& entry(QChar letter) const { return m_entries[number(letter)]; }

    std::size_t number(QChar letter) const;

    /// The letters in the order of their numbers.
    const QString& letters() const { return m_letters; }

private:
    static constexpr std::size_t asciiSize = 128;

    QString m_letters;
    std::vector<NamedMolecule> m_entries{NamedMolecule()};
    std::array<std::size_t, asciiSize> m_asciiNumbers{};
    QHash<QChar, std::size_t> m_otherNumbers;
};

} // namespace chem
