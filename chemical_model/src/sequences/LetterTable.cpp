#include "sequences/LetterTable.h"

namespace chem {

LetterTable::LetterTable(const QMap<QString, NamedMolecule>& dictionary)
{
    for (auto entry = dictionary.cbegin(); entry != dictionary.cend(); ++entry) {
        if (entry.key().size() != 1)
            continue;
        const QChar letter = entry.key().front();
        if (letter.unicode() < asciiSize)
            m_asciiNumbers[letter.unicode()] = m_entries.size();
        else
            m_otherNumbers.insert(letter, m_entries.size());
        m_letters.append(letter);
        m_entries.push_back(entry.value());
    }
}

std::size_t LetterTable::number(QChar letter) const
{
    return letter.unicode() < asciiSize ? m_asciiNumbers[letter.unicode()]
                                        : m_otherNumbers.value(letter);
}

} // namespace chem
