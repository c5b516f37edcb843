#include "Modify.h"

#include "StructuredBuilders.h"
#include "steps/TransformationHistory.h"
#include "structure/Totals.h"

#include <optional>
#include <utility>

namespace chem {

namespace {

using Location = std::pair<int, int>;

/// The messages of a step whose place cannot exist.
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

template <typename T>
bool hasIndex(const QList<T>& list, int index)
{
    return index >= 0 && index < list.size();
}

bool exists(const QList<Chain>& chains, const Location& location)
{
    return hasIndex(chains, location.first) &&
           hasIndex(chains[location.first].residues(), location.second);
}

/// Throws if there are fewer chains, or fewer residues, than the place says. An index equal to the
/// count and a negative one are let through, as programs that rely on these messages expect.
void checkBounds(const QList<Chain>& chains, const Location& location,
                 const BoundsMessages& messages)
{
    if (chains.size() < location.first)
        throw messages.chain;
    if (hasIndex(chains, location.first) &&
        chains[location.first].residues().size() < location.second)
        throw messages.residue;
}

/// The one place where the modification goes, or nothing if it stays with the molecule as a whole.
std::optional<Location> placeOnResidue(const Modification& modification, const QList<Chain>& chains,
                                       const BoundsMessages& messages)
{
    if (modification.possibleChainLocations().size() != 1)
        return std::nullopt;
    const Location location = modification.possibleChainLocations().first();
    checkBounds(chains, location, messages);
    return exists(chains, location) ? std::optional(location) : std::nullopt;
}

/// Applies `step` to the residue at an existing place. Its chain loses its parent locus: with a
/// changed residue it is no longer a piece of the chain that it was cut from.
void transformResidue(QList<Chain>* chains, const Location& location, const Transformation& step)
{
    const Chain& chain = std::as_const(*chains)[location.first];
    QList<MoleculeEntity> residues = chain.residues();
    residues[location.second] = step.transform(std::as_const(residues)[location.second]);
    chains->replace(location.first,
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
    if (const auto place = placeOnResidue(m_modification, result.chains, modifyMessages))
        transformResidue(&result.chains, *place, Modify(group));
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
    if (const auto place = placeOnResidue(m_modification, result.chains, unmodifyMessages))
        transformResidue(&result.chains, *place, Unmodify(Modification(group, {})));
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
                              const std::pair<int, int>& location)
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
