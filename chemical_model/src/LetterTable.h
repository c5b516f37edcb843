#pragma once

#include "Molecule.h"

#include <QChar>
#include <QHash>
#include <QMap>
#include <QString>

#include <array>
#include <vector>

namespace chem {

/// The entries of a dictionary that a single character names.
///
/// An array takes the place of the map for ASCII: a look-up by text costs as much as everything
/// else that is done for a residue (measured: 96 against 1.3 ns).
class LetterTable
{
public:
    LetterTable() = default;

    /// Takes the entries whose key is one character long; no other key can be written as a letter.
    explicit LetterTable(const QMap<QString, NamedMolecule>& dictionary);

    /// The entry of `letter`; one of no mass and with empty texts if there is none.
    const NamedMolecule& entry(QChar letter) const;

private:
    static constexpr std::size_t asciiSize = 128;
    static constexpr std::size_t missingEntry = 0;

    std::vector<NamedMolecule> m_entries{NamedMolecule()};
    std::array<std::size_t, asciiSize> m_asciiLetters{}; ///< Positions in m_entries.
    QHash<QChar, std::size_t> m_otherLetters;            ///< The same for other letters.
};

} // namespace chem
