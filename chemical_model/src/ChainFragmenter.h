#pragma once

#include "StructuredMolecule.h"
#include "Transformation.h"
#include <zel_chemical_model/ChemicalModelExport.h>

#include <QList>

namespace chem {

/// \addtogroup steps
/// @{

/// One piece of a chain: a range of residues with an entity on each end. An end of no average mass
/// is left out of the piece.
struct ZEL_CHEMICAL_MODEL_EXPORT ChainFragmentDef
{
    MoleculeEntity startTerminal; ///< Placed before the residues.
    ParentChainLocus locus;       ///< The residues: `start` up to but not including `end`.
    MoleculeEntity endTerminal;   ///< Placed behind the residues.
};

/// Replaces the chains of a molecule by pieces of them.
///
/// The result is named "fragment" and has one chain for each definition, in their order, with the
/// range as its parent locus. Its totals are summed anew from the pieces, the links that both their
/// ends survive and the molecule's own modifications, which all stay as they are. A link is kept
/// once for each piece that holds its first end and goes to the first piece that holds its second
/// end. Its residue indices count one place for a start terminal, whether or not there is one.
///
/// Throws nothing. A range that reaches outside its chain takes the residues that exist; a
/// definition whose chain does not exist gives a chain of its terminals alone, without texts and of
/// type Unknown. The cost is linear in the residues taken, in links times pieces, and in the
/// molecule's modifications and history.
///
/// \code
/// const MoleculeEntity blank = nullptr;
/// const ChainFragmenter middle({{blank, {QString(), 0, 2, 5}, blank}}); // residues 2, 3 and 4
/// middle.transform(peptide).sequence();                                 // "AST"
/// \endcode
class ZEL_CHEMICAL_MODEL_EXPORT ChainFragmenter : public Transformation
{
public:
    /// A step that cuts out these pieces.
    explicit ChainFragmenter(const QList<ChainFragmentDef>& fragmentDefs);

    /// Shares the definitions.
    ChainFragmenter(const ChainFragmenter& other);
    /// Shares the definitions; `other` keeps them.
    ChainFragmenter(ChainFragmenter&& other) noexcept;
    ChainFragmenter& operator=(const ChainFragmenter&) = delete;
    ChainFragmenter& operator=(ChainFragmenter&&) = delete;
    ~ChainFragmenter() override;

    MoleculeEntity transform(MoleculeEntity molecule) const override;

    /// ChainFragmenterTransformation.
    TransformationType type() const override;

private:
    QList<ChainFragmentDef> m_fragmentDefs;
};

/// @}

} // namespace chem

Q_DECLARE_TYPEINFO(chem::ChainFragmentDef, Q_RELOCATABLE_TYPE);
