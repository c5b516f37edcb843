#include "PeptideParts.h"

#include <utility>

namespace chem {

PeptideParts::PeptideParts(const QMap<QString, NamedMolecule>& aminoAcids,
                           std::vector<FragmentationSite> sites)
    : m_sites(std::move(sites))
{
    for (auto entry = aminoAcids.cbegin(); entry != aminoAcids.cend(); ++entry) {
        if (entry.key().size() != 1)
            continue;
        const QChar letter = entry.key().front();
        if (letter.unicode() < asciiSize)
            m_asciiLetters[letter.unicode()] = m_residues.size();
        else
            m_otherLetters.insert(letter, m_residues.size());
        m_residues.push_back(entry.value());
    }
}

const NamedMolecule& PeptideParts::residue(QChar letter) const
{
    const std::size_t position = letter.unicode() < asciiSize
                                     ? m_asciiLetters[letter.unicode()]
                                     : m_otherLetters.value(letter, unknownResidue);
    return m_residues[position];
}

} // namespace chem
