#include "backbone/PlainParts.h"

#include "masses/EntityMasses.h"

#include <algorithm>

namespace ions {

namespace {

/// The most marks of one linkage that are told apart by their mass.
constexpr int mostMarks = 4;

const MoleculePart* partOfMass(std::span<const MoleculePart> parts, const Masses& masses)
{
    const auto part = std::find_if(parts.begin(), parts.end(), [&masses](const MoleculePart& p) {
        return isSameMass(p.masses, masses);
    });
    return part == parts.end() ? nullptr : &*part;
}

const MoleculePart* baseOf(const BackboneChain& chain, qsizetype unit, const ResidueTable& residues)
{
    const Masses& masses = chain.bases[std::size_t(unit)];
    const QStringView letter = QStringView(chain.letters).sliced(unit, 1);
    const auto bases = residues.bases();
    const auto base = std::find_if(bases.begin(), bases.end(), [&](const MoleculePart& part) {
        return part.code == letter && isSameMass(part.masses, masses);
    });
    return base == bases.end() ? nullptr : &*base;
}

/// A linkage of marks that weigh as much together, at most as many as stated.
std::optional<Composition> linkageOf(std::span<const MoleculePart> marks, const Masses& masses,
                                     int most)
{
    if (isSameMass(masses, Masses()))
        return Composition();
    for (std::size_t i = 0; most > 0 && i < marks.size(); ++i) {
        auto rest = linkageOf(marks.subspan(i), masses - marks[i].masses, most - 1);
        if (rest && rest->add(marks[i].composition))
            return rest;
    }
    return {};
}

/// What an end of these has beyond the one that bears nothing, if it weighs as much.
std::optional<Composition> groupOf(std::span<const MoleculePart> ends, const Masses& group,
                                   const MoleculePart& bare)
{
    const MoleculePart* const end = partOfMass(ends, group + bare.masses);
    Composition rest = end ? end->composition : Composition();
    return end && rest.add(bare.composition, -1) ? std::optional(rest) : std::nullopt;
}

std::optional<Composition> plainNucleoside(const BackboneChain& chain, qsizetype unit,
                                           const ResidueTable& residues)
{
    const MoleculePart* const base = baseOf(chain, unit, residues);
    if (!base)
        return {};
    const MoleculePart* const sugar =
        partOfMass(residues.sugars(), chain.units[std::size_t(unit)] - base->masses);
    Composition sum = base->composition;
    if (!sugar || !sum.add(sugar->composition))
        return {};
    return sum;
}

} // namespace

std::optional<Composition> plainUnit(const BackboneChain& chain, qsizetype unit,
                                     const ResidueTable& residues)
{
    if (chain.polymer == Polymer::Oligonucleotide)
        return plainNucleoside(chain, unit, residues);
    const char16_t letter = chain.letters[unit].unicode();
    const Composition* const composition = residues.composition(letter);
    if (!composition || !isSameMass(chain.units[std::size_t(unit)], residues.residue(letter)))
        return {};
    return *composition;
}

std::optional<Composition> plainBase(const BackboneChain& chain, qsizetype unit,
                                     const ResidueTable& residues)
{
    const MoleculePart* const base = baseOf(chain, unit, residues);
    return base ? std::optional(base->composition) : std::nullopt;
}

std::optional<Composition> plainLinkage(const BackboneChain& chain, qsizetype unit,
                                        const ResidueTable& residues)
{
    return linkageOf(residues.linkages(), chain.linkages[std::size_t(unit)], mostMarks);
}

std::optional<Composition> plainLeftGroup(const BackboneChain& chain, const ResidueTable& residues)
{
    return groupOf(residues.leftEnds(), chain.leftGroup, residues.leftEnds().front());
}

std::optional<Composition> plainRightGroup(const BackboneChain& chain, const ResidueTable& residues)
{
    return groupOf(residues.rightEnds(), chain.rightGroup, residues.rightEnds().front());
}

} // namespace ions
