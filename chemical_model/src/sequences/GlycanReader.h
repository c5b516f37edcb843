#pragma once

#include "Molecule.h"

#include <QMap>
#include <QString>

#include <array>
#include <optional>

namespace chem {

/// Reads glycan compositions, such as "HexNAc(2)Hex(5)". A term is one of nine residue names,
/// optional white space and a count in parentheses; whatever else the text holds is skipped.
class GlycanReader
{
public:
    explicit GlycanReader(const QMap<QString, NamedMolecule>& sugars);

    /// Tells whether there is a term and every one has a known residue and a count that 32 bits
    /// hold.
    bool isValid(QStringView composition) const;

    /// The sum of the terms that can be used, masses times counts in the order of the text.
    Molecule sum(QStringView composition) const;

private:
    static constexpr std::size_t nameCount = 9;
    std::array<std::optional<Molecule>, nameCount> m_residues; ///< In the order of the names.
};

} // namespace chem
