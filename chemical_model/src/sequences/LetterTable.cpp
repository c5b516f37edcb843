#include "sequences/LetterTable.h"

namespace chem {

LetterTable::LetterTable(const QMap<QString, NamedMolecule>& dictionary)
{
    for (auto entry = dictionary.cbegin(); entry != dictionary.cend(); ++entry) {
        if (entry.key().size() != 1)
            continue;
        const QChar letter = entry.key().front();
        m_numbers.insert(letter, m_entries.size());
        m_letters.append(letter);
        m_entries.push_back(entry.value());
    }
}

} // namespace chem
