#pragma once

#include "StructuredMolecule.h"
#include "Transformation.h"
#include <zel_chemical_model/ChemicalModelExport.h>

namespace chem {

/// \addtogroup steps
/// @{

/// Joins two residues of a molecule by a link.
///
/// The totals rise by the entity's formula and masses. The stored link holds just these, as a plain
/// Molecule, so its name and code are gone; the history entry keeps the entity as given. Nothing is
/// tested: positions may lie outside, and a link made twice counts twice. Throws nothing. No step
/// takes a link away, but a ChainFragmenter drops those that leave its pieces.
///
/// \code
/// const EstablishLink disulfide(factory->modifyMolecule({}, u"H-2"_s, 1), {{0, 3}, {0, 14}});
/// const MoleculeEntity somatostatin = disulfide.transform(reduced);
/// \endcode
class ZEL_CHEMICAL_MODEL_EXPORT EstablishLink : public Transformation
{
public:
    /// A step that joins the two residue positions of `connection` and adds `entity`.
    EstablishLink(MoleculeEntity entity, Link::Connection connection);

    MoleculeEntity transform(MoleculeEntity molecule) const override;

    /// EstablishLinkTransformation.
    TransformationType type() const override;

private:
    Link m_link;
};

/// @}

} // namespace chem
