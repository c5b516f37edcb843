#pragma once

#include "LinearComplex.h"

#include <QHash>
#include <QMap>
#include <QString>

#include <array>
#include <vector>

namespace chem {

/// What a peptide is laid out from: the residue of each character and the ten ways to break.
class PeptideParts
{
public:
    PeptideParts() = default;

    /// Takes the residues from a dictionary by letter; keys of several characters cannot be
    /// written.
    PeptideParts(const QMap<QString, NamedMolecule>& aminoAcids,
                 std::vector<FragmentationSite> sites);

    /// The residue of `letter`; one of no mass and with empty texts for a letter without an entry.
    const NamedMolecule& residue(QChar letter) const;

    /// The sites of every position, in their order.
    const std::vector<FragmentationSite>& sites() const { return m_sites; }

private:
    static constexpr std::size_t asciiSize = 128;
    static constexpr std::size_t unknownResidue = 0;

    std::vector<NamedMolecule> m_residues{NamedMolecule()};
    std::array<std::size_t, asciiSize> m_asciiLetters{}; ///< Positions in m_residues.
    QHash<QChar, std::size_t> m_otherLetters;            ///< The same for other letters.
    std::vector<FragmentationSite> m_sites;
};

} // namespace chem
