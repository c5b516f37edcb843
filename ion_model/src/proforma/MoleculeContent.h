#pragma once

#include "Parsed.h"
#include "ProForma.h"
#include "backbone/LastCut.h"
#include "proforma/MoleculeParts.h"
#include <zel_chemical_model/MoleculeEntity.h>

#include <QList>
#include <QString>

#include <optional>
#include <utility>
#include <vector>

namespace ions {

/// Chain and residue as the first library counts them, ends included.
using MoleculePosition = std::pair<int, int>;

/// The refusal of what stands at a position: "expected " and what should.
Error refusalAt(const QString& expected, const MoleculePosition& position);

/// A refusal with its place.
Error placedAt(Error error, const MoleculePosition& position);

/// The mention of a label alone, without a score.
Modification bareLabel(const ModificationLabel& label);

/// Whether a group says by its code that it is described in front of its chain.
bool isInFront(const Modification& modification, const chem::MoleculeEntity& group);

/// What a molecule of the first library says, apart from its isotopes: chains taken apart,
/// modifications of known places on their residues.
class MoleculeContent
{
public:
    /// Refused as by Peptidoform::ofMolecule().
    static Parsed<MoleculeContent> of(const chem::MoleculeEntity& molecule,
                                      const ResidueTable& residues);

    std::vector<MoleculeChain> chains;
    QList<chem::Modification> open; ///< Those that are on no residue.
    QList<chem::Link> links;
    LastCut lastCut;

    /// Whether there is a residue or an end at the position.
    bool exists(const MoleculePosition& position) const;
    /// All groups: those of residues and ends, open ones and bridges.
    std::vector<chem::MoleculeEntity> groups() const;

private:
    explicit MoleculeContent(const chem::MoleculeEntity& molecule);

    std::optional<Error> read(const chem::MoleculeEntity& molecule, const ResidueTable& residues);
    std::optional<Error> place(const QList<chem::Modification>& modifications);
};

} // namespace ions
