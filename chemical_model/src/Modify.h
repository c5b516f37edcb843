#pragma once

#include "StructuredMolecule.h"
#include "Transformation.h"
#include <zel_chemical_model/ChemicalModelExport.h>

#include <utility>

namespace chem {

/// \addtogroup steps
/// @{

/// Puts a modification on a molecule.
///
/// A modification with exactly one position goes onto that residue, which turns into a structured
/// molecule with the modification in its list and one history entry of its own; the chain loses its
/// parent locus. Any other modification goes into the molecule's own list. The totals rise by the
/// group either way.
///
/// Throws, as `const char*`, "Attemt to put modification on non-existing chain" or "... residue" if
/// there are fewer chains or residues than the index says. An index equal to the count, or a
/// negative one, is let through: the modification then goes into the molecule's own list with its
/// position as it stands.
///
/// The cost is linear in the residues of that one chain and in the length of the history.
///
/// \code
/// const Modification phosphorylation(factory->constructMolecule(u"HPO3"_s), {{0, 3}});
/// const MoleculeEntity phosphopeptide = Modify(phosphorylation).transform(peptide);
/// phosphopeptide.sequence(); // "H-GAS[]TK-OH"
/// \endcode
class ZEL_CHEMICAL_MODEL_EXPORT Modify : public Transformation
{
public:
    /// A step that adds `entity` without a position.
    explicit Modify(MoleculeEntity entity);

    /// A step that adds `modification`.
    explicit Modify(const Modification& modification);

    MoleculeEntity transform(MoleculeEntity molecule) const override;

    /// ModifyTransformation.
    TransformationType type() const override;

private:
    Modification m_modification;
};

/// Takes a modification off a molecule.
///
/// With exactly one position it is looked for on that residue, else in the molecule's own list,
/// where the first equal entry goes. The totals fall by the group. History only grows: the step
/// adds an entry, and a residue stays a structured molecule.
///
/// Throws, as `const char*`, "Attemt to remove modification from non-existing chain" or "...
/// residue", on the same terms as Modify, and "Could not remove specified modification" if there is
/// no equal one.
///
/// \code
/// const MoleculeEntity again = Unmodify(phosphorylation).transform(phosphopeptide);
/// again.transformations().size(); // 2: the history grows
/// \endcode
class ZEL_CHEMICAL_MODEL_EXPORT Unmodify : public Transformation
{
public:
    /// A step that takes `modification` off.
    explicit Unmodify(Modification modification);

    MoleculeEntity transform(MoleculeEntity molecule) const override;

    /// UnmodifyTransformation.
    TransformationType type() const override;

private:
    Modification m_modification;
};

/// Puts one group on one residue and sums the molecule again from its parts.
///
/// Unlike after a located Modify, the history is empty. A position that does not exist puts the
/// group into the molecule's own list, with that position. Throws nothing. Any number of threads
/// may call it with the same molecule at once.
ZEL_CHEMICAL_MODEL_EXPORT MoleculeEntity modifyMolecule(MoleculeEntity molecule,
                                                        MoleculeEntity modification,
                                                        const std::pair<int, int>& location);

/// @}

} // namespace chem
