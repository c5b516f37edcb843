#include "Modify.h"

#include "StructuredBuilders.h"
#include "steps/TransformationHistory.h"
#include "structure/ResiduePosition.h"
#include "structure/StructuredCopy.h"
#include "structure/Totals.h"

#include <optional>
#include <utility>

namespace chem {

namespace {

/// The messages of a step whose position cannot exist.
struct BoundsMessages
{
    const char* chain;
    const char* residue;
};

constexpr BoundsMessages modifyMessages = {"Attemt to put modification on non-existing chain",
                                           "Attemt to put modification on non-existing residue"};
constexpr BoundsMessages unmodifyMessages = {
    "Attemt to remove modification from non-existing chain",
    "Attemt to remove modification from non-existing residue"};
constexpr const char* missingModificationMessage = "Could not remove specified modification";

/// Throws if there are fewer chains, or fewer residues, than the position says. An index equal to
/// the count and a negative one are let through, as programs that rely on these messages expect.
void checkBounds(const QList<Chain>& chains, const ResiduePosition& position,
                 const BoundsMessages& messages)
{
    if (chains.size() < position.first)
        throw messages.chain;
    if (hasIndex(chains, position.first) &&
        chains[position.first].residues().size() < position.second)
        throw messages.residue;
}

/// The one residue that the modification goes onto, or nothing if it stays with the molecule as a
/// whole.
std::optional<ResiduePosition> residueOf(const Modification& modification,
                                         const QList<Chain>& chains, const BoundsMessages& messages)
{
    if (modification.possibleChainLocations().size() != 1)
        return std::nullopt;
    const ResiduePosition position = modification.possibleChainLocations().first();
    checkBounds(chains, position, messages);
    return exists(chains, position) ? std::optional(position) : std::nullopt;
}

/// Applies `step` to an existing residue. Its chain loses its parent locus: with a changed residue
/// it is no longer a piece of the chain that it was cut from.
void transformResidue(QList<Chain>* chains, const ResiduePosition& position,
                      const Transformation& step)
{
    const Chain& chain = std::as_const(*chains)[position.first];
    QList<MoleculeEntity> residues = chain.residues();
    residues[position.second] = step.transform(std::as_const(residues)[position.second]);
    chains->replace(position.first,
                    Chain(chain.name(), chain.code(), residues, chain.type(), ParentChainLocus()));
}

} // namespace

Modify::Modify(MoleculeEntity entity)
    : m_modification(std::move(entity), {})
{
}

Modify::Modify(const Modification& modification)
    : m_modification(modification)
{
}

MoleculeEntity Modify::transform(MoleculeEntity molecule) const
{
    StructuredMolecule result = structuredCopy(molecule);
    const MoleculeEntity group = m_modification.entity();
    if (const auto position = residueOf(m_modification, result.chains, modifyMessages))
        transformResidue(&result.chains, *position, Modify(group));
    else
        result.modifications.append(m_modification);

    writeTotals(totalsOf(result) + totalsOf(group), &result);
    return recordStep(std::move(result), *this, molecule);
}

TransformationType Modify::type() const
{
    return ModifyTransformation;
}

Unmodify::Unmodify(Modification modification)
    : m_modification(std::move(modification))
{
}

MoleculeEntity Unmodify::transform(MoleculeEntity molecule) const
{
    StructuredMolecule result = structuredCopy(molecule);
    const MoleculeEntity group = m_modification.entity();
    if (const auto position = residueOf(m_modification, result.chains, unmodifyMessages))
        transformResidue(&result.chains, *position, Unmodify(Modification(group, {})));
    else if (!result.modifications.removeOne(m_modification))
        throw missingModificationMessage;

    writeTotals(totalsOf(result) - totalsOf(group), &result);
    return recordStep(std::move(result), *this, molecule);
}

TransformationType Unmodify::type() const
{
    return UnmodifyTransformation;
}

MoleculeEntity modifyMolecule(MoleculeEntity molecule, MoleculeEntity modification,
                              const ResiduePosition& location)
{
    QList<Chain> chains = molecule.chains();
    QList<Modification> modifications = molecule.modifications();
    if (exists(chains, location))
        transformResidue(&chains, location, Modify(std::move(modification)));
    else
        modifications.append(Modification(std::move(modification), {location}));
    return constructStructuredMolecule(molecule.name(), molecule.code(), chains, modifications,
                                       molecule.links(), molecule.type());
}

} // namespace chem
