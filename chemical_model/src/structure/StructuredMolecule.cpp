#include "StructuredMolecule.h"

#include "support/NearlyEqual.h"

#include <utility>

namespace chem {

namespace {

bool isSameLocus(const ParentChainLocus& a, const ParentChainLocus& b)
{
    return a.label == b.label && a.chain == b.chain && a.start == b.start && a.end == b.end;
}

} // namespace

Chain::Chain(const QString& name, const QString& code, const QList<MoleculeEntity>& residues,
             MoleculeType type, ParentChainLocus parentLocus)
    : m_residues(residues)
    , m_name(name)
    , m_code(code)
    , m_type(type)
    , m_parentLocus(std::move(parentLocus))
{
}

bool Chain::operator==(const Chain& other) const
{
    return m_residues == other.m_residues // at once for lists that share their storage
           && m_name == other.m_name && m_type == other.m_type &&
           isSameLocus(m_parentLocus, other.m_parentLocus);
}

Link::Link()
    : Link(MoleculeEntity(0), Connection())
{
}

Link::Link(MoleculeEntity entity, Connection connection)
    : m_entity(std::move(entity))
    , m_connection(connection)
{
}

bool Link::operator==(const Link& other) const
{
    return m_entity == other.m_entity && m_connection == other.m_connection;
}

Modification::Modification()
    : m_entity(nullptr)
{
}

Modification::Modification(MoleculeEntity entity,
                           const QList<std::pair<int, int>>& possibleChainLocations)
    : m_entity(std::move(entity))
    , m_possibleChainLocations(possibleChainLocations)
{
}

double Modification::averageMass() const
{
    return m_entity.averageMass();
}

double Modification::monoMass() const
{
    return m_entity.monoMass();
}

const ChemicalFormula Modification::formula() const
{
    return m_entity.formula();
}

bool Modification::operator==(const Modification& other) const
{
    return m_entity == other.m_entity && m_possibleChainLocations == other.m_possibleChainLocations;
}

bool Modification::operator<(const Modification& other) const
{
    if (!nearlyEqual(averageMass(), other.averageMass()))
        return averageMass() < other.averageMass();
    if (!nearlyEqual(monoMass(), other.monoMass()))
        return monoMass() < other.monoMass();
    const QString text = formula().toString();
    const QString otherText = other.formula().toString();
    if (text != otherText)
        return text < otherText;
    return m_possibleChainLocations < other.m_possibleChainLocations;
}

} // namespace chem
