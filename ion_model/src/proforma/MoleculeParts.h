#pragma once

#include "Backbone.h"
#include "Parsed.h"
#include "ResidueTable.h"
#include "proforma/GroupNames.h"
#include <zel_chemical_model/StructuredMolecule.h>

#include <QList>

#include <optional>
#include <vector>

namespace ions {

/// A residue or an end of a chain of the first library, taken apart.
struct MoleculePiece
{
    char16_t letter = u'X';           ///< X where the residue has none of its own; 0 for an end.
    WeighedAtoms bare;                ///< Without its groups.
    QList<chem::Modification> groups; ///< What steps put on it.
};

/// A chain of the first library, taken apart.
struct MoleculeChain
{
    std::vector<MoleculePiece> pieces; ///< Ends included, as the chain has them.
    bool hasLeftEnd = false;
    bool hasRightEnd = false;
    bool isPiece = false; ///< Whether it says where it was cut from.

    qsizetype firstUnit() const { return hasLeftEnd ? 1 : 0; }
    qsizetype unitCount() const { return std::ssize(pieces) - firstUnit() - (hasRightEnd ? 1 : 0); }
};

/// Takes a chain of amino acids apart; `index` is its own, for refusals.
Parsed<MoleculeChain> takeApart(const chem::Chain& chain, qsizetype index,
                                const ResidueTable& residues);

/// The isotopes in which all residues, ends and groups of the chains are, if there are any.
std::vector<Atom> isotopesOf(const std::vector<MoleculeChain>& chains,
                             std::vector<WeighedAtoms> groups, const ResidueTable& residues);

/// The atoms that an end of a peptide has at least: those of the left one, or of the right one.
Composition plainEnd(bool isLeft);

} // namespace ions
