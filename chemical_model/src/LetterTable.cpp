#include "LetterTable.h"

namespace chem {

LetterTable::LetterTable(const QMap<QString, NamedMolecule>& dictionary)
{
    for (auto entry = dictionary.cbegin(); entry != dictionary.cend(); ++entry) {
        if (entry.key().size() != 1)
            continue;
        const QChar letter = entry.key().front();
        if (letter.unicode() < asciiSize)
            m_asciiLetters[letter.unicode()] = m_entries.size();
        else
            m_otherLetters.insert(letter, m_entries.size());
        m_entries.push_back(entry.value());
    }
}

const NamedMolecule& LetterTable::entry(QChar letter) const
{
    const std::size_t position = letter.unicode() < asciiSize
                                     ? m_asciiLetters[letter.unicode()]
                                     : m_otherLetters.value(letter, missingEntry);
    return m_entries[position];
}

} // namespace chem
