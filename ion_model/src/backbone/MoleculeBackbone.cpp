#include "Backbone.h"
#include "backbone/ChainReader.h"
#include "backbone/LastCut.h"
#include "masses/EntityMasses.h"
#include <zel_chemical_model/Modify.h>
#include <zel_chemical_model/StructuredMolecule.h>

#include <algorithm>
#include <deque>
#include <numeric>

using namespace Qt::StringLiterals;

namespace ions {

namespace {

using Position = std::pair<int, int>;

/// The composition of what a step added, as far as its formula tells.
Composition knownComposition(const chem::MoleculeEntity& entity, const ResidueTable& residues)
{
    return weighedComposition(entity.formula(), massesOf(entity), residues.atoms()).valueOr({});
}

/// A chain whose residues may still be modified.
struct EditableChain
{
    explicit EditableChain(const chem::Chain& chain)
        : residues(chain.residues())
        , type(chain.type())
        , isPiece(chain.parentLocus().end != 0)
    {
    }

    QList<chem::MoleculeEntity> residues;
    chem::MoleculeType type;
    bool isPiece; ///< Whether it says where it was cut from.
};

/// Reads a molecule of the first library in four passes: modifications in known places go onto
/// their residues, chains are read, open modifications and links are placed among their units.
class MoleculeReader
{
public:
    MoleculeReader(const chem::MoleculeEntity& molecule, const ResidueTable& residues)
        : m_residues(residues)
        , m_lastCut(molecule)
        , m_modifications(molecule.modifications())
        , m_links(molecule.links())
    {
        const QList<chem::Chain> chains = molecule.chains();
        m_chains = {chains.begin(), chains.end()};
    }

    Parsed<Backbone> read()
    {
        if (m_chains.empty())
            return Error{u"expected a molecule with a chain"_s};
        auto error = modifyResidues();
        if (!error)
            error = readChains();
        if (!error)
            error = placeOpenGroups();
        if (!error)
            error = placeLinks();
        if (error)
            return *std::move(error);
        return Backbone::ofChains(std::move(m_units), std::move(m_bridges), m_residues.breaks());
    }

private:
    static Error refusal(const QString& expected, const Position& position)
    {
        return {u"expected "_s + expected, -1, position.first, position.second};
    }

    bool exists(const Position& position) const
    {
        return position.first >= 0 && position.first < std::ssize(m_chains) &&
               position.second >= 0 &&
               position.second < m_chains[std::size_t(position.first)].residues.size();
    }

    std::optional<Error> modifyResidues()
    {
        for (const chem::Modification& modification : std::as_const(m_modifications)) {
            const QList<Position>& places = modification.possibleChainLocations();
            if (!places.isEmpty() && m_lastCut.isOlder(modification))
                return refusal(u"no place that counts from before a cut"_s, places.first());
            const auto odd = std::find_if_not(places.begin(), places.end(),
                                              [this](const Position& p) { return exists(p); });
            if (odd != places.end())
                return refusal(u"a modification at a residue"_s, *odd);
            if (places.size() == 1)
                modify(places.first(), modification.entity());
        }
        return {};
    }

    void modify(const Position& place, const chem::MoleculeEntity& group)
    {
        chem::MoleculeEntity& residue = m_chains[std::size_t(place.first)].residues[place.second];
        residue = chem::Modify(group).transform(residue);
    }

    std::optional<Error> readChains()
    {
        for (const EditableChain& chain : m_chains) {
            m_readers.emplace_back(chain.residues, chain.type, std::ssize(m_readers), m_residues);
            if (auto error = m_readers.back().read())
                return error;
            m_units.push_back(m_readers.back().chain());
        }
        return {};
    }

    std::optional<Error> placeOpenGroups()
    {
        for (const chem::Modification& modification : std::as_const(m_modifications)) {
            if (modification.possibleChainLocations().size() == 1)
                continue;
            if (auto error = placeOpenGroup(modification))
                return error;
        }
        return {};
    }

    std::optional<Error> placeOpenGroup(const chem::Modification& modification)
    {
        const QList<Position>& places = modification.possibleChainLocations();
        const Masses masses = massesOf(modification);
        if (!isFinite(masses))
            return Error{u"expected a modification with a mass"_s};
        if (places.isEmpty() && m_units.size() > 1)
            return Error{u"expected a place for a modification, as there are several chains"_s};
        if (masses == Masses())
            return {};
        const qsizetype chain = places.isEmpty() ? 0 : places.first().first;
        const chem::MoleculeEntity entity = modification.entity();
        OpenGroup open{{masses, {}, knownComposition(entity, m_residues), {}, {}, entity.name()},
                       {}};
        if (auto error = findUnits(places, &open.units))
            return error;
        m_units[std::size_t(chain)].open.push_back(std::move(open));
        return {};
    }

    /// The units of the places; all of the only chain for a group without places.
    std::optional<Error> findUnits(const QList<Position>& places,
                                   std::vector<qsizetype>* units) const
    {
        if (places.isEmpty()) {
            units->resize(m_units.front().units.size());
            std::iota(units->begin(), units->end(), 0);
        }
        for (const Position& position : places) {
            if (position.first != places.first().first)
                return refusal(u"an open modification within one chain"_s, position);
            const auto place = m_readers[std::size_t(position.first)].placeOf(position.second);
            if (place->isLinkage)
                return refusal(u"no open modification on a linkage"_s, position);
            units->push_back(place->unit);
        }
        std::sort(units->begin(), units->end());
        units->erase(std::unique(units->begin(), units->end()), units->end());
        return {};
    }

    std::optional<Error> placeLinks()
    {
        qsizetype index = 0;
        for (const chem::Link& link : std::as_const(m_links)) {
            const auto [first, second] = link.connection();
            const Parsed<Position> firstEnd = linkEnd(first, index);
            if (!firstEnd)
                return firstEnd.error();
            const Parsed<Position> secondEnd = linkEnd(second, index);
            if (!secondEnd)
                return secondEnd.error();
            const chem::MoleculeEntity entity = link.entity();
            const Masses masses = massesOf(entity);
            if (!isFinite(masses))
                return refusal(u"a link with a mass"_s, first);
            m_bridges.push_back({firstEnd->first, firstEnd->second, secondEnd->first,
                                 secondEnd->second, masses, knownComposition(entity, m_residues)});
            ++index;
        }
        return {};
    }

    /// The chain and unit at which a link ends.
    Parsed<Position> linkEnd(const Position& position, qsizetype index) const
    {
        if (position.first < 0 || position.first >= std::ssize(m_chains))
            return refusal(u"a link between residues"_s, position);
        const auto chain = std::size_t(position.first);
        qsizetype residue = position.second;
        if (!m_units[chain].hasLeftEnd) {
            const auto linked = m_lastCut.linkedResidue(index, residue, m_chains[chain].isPiece);
            if (!linked)
                return refusal(u"a link whose place does not depend on a cut"_s, position);
            residue = *linked;
        }
        const auto place = m_readers[chain].placeOf(residue);
        if (!place)
            return refusal(u"a link between residues"_s, position);
        if (place->isLinkage)
            return refusal(u"no link on a linkage"_s, position);
        return Position{position.first, int(place->unit)};
    }

    const ResidueTable& m_residues;
    LastCut m_lastCut;
    QList<chem::Modification> m_modifications;
    QList<chem::Link> m_links;
    std::vector<EditableChain> m_chains;
    std::deque<ChainReader> m_readers;
    std::vector<BackboneChain> m_units;
    std::vector<BackboneLink> m_bridges;
};

} // namespace

Parsed<Backbone> Backbone::ofMolecule(const chem::MoleculeEntity& molecule,
                                      const ResidueTable& residues)
{
    return MoleculeReader(molecule, residues).read();
}

Parsed<Backbone> Backbone::ofChain(const chem::Chain& chain, const ResidueTable& residues)
{
    ChainReader reader(chain.residues(), chain.type(), 0, residues);
    if (auto error = reader.read())
        return *std::move(error);
    return ofChains({reader.chain()}, {}, residues.breaks());
}

} // namespace ions
