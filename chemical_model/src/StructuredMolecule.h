#pragma once

#include "ChemicalFormula.h"
#include "MoleculeEntity.h"
#include "MoleculeType.h"
#include "Transformation.h"
#include <zel_chemical_model/ChemicalModelExport.h>

#include <QList>
#include <QString>

#include <utility>

/// \addtogroup molecules
/// \details A residue position is a pair of indices, chain first and then the residue in
/// Chain::residues(), both from 0. The terminals of a chain are residues like any other. Positions
/// are not tested: one that lies outside is kept, and its mass counts. All types are values that
/// may be copied and read from several threads.

namespace chem {

/// \addtogroup molecules
/// @{

/// Where a fragment chain lies in the chain that it was cut from.
struct ZEL_CHEMICAL_MODEL_EXPORT ParentChainLocus
{
    QString label; ///< A text that is carried along.
    int chain = 0; ///< Index of the parent chain.
    int start = 0; ///< Index of the first residue taken.
    int end = 0;   ///< Index one past the last residue taken.
};

/// A chain of residues, terminals included.
class ZEL_CHEMICAL_MODEL_EXPORT Chain
{
public:
    /// Makes a chain. Mind the order: both texts come before the residues.
    Chain(const QString& name, const QString& code, const QList<MoleculeEntity>& residues,
          MoleculeType type, ParentChainLocus parentLocus);

    /// The residues in chain order, the two terminals first and last where the chain has them.
    const QList<MoleculeEntity>& residues() const { return m_residues; }

    const QString& name() const { return m_name; }      ///< The readable name.
    const QString& code() const { return m_code; }      ///< The short label.
    const MoleculeType& type() const { return m_type; } ///< What the chain is.

    /// Where a fragment chain was cut from; all default for any other chain.
    const ParentChainLocus& parentLocus() const { return m_parentLocus; }

    /// Compares residues, name, type and locus. The code takes no part on purpose: it labels a
    /// chain and says nothing of what it is. Comparing a chain with its own copy skips the
    /// residues.
    bool operator==(const Chain& other) const;

private:
    QList<MoleculeEntity> m_residues;
    QString m_name;
    QString m_code;
    MoleculeType m_type;
    ParentChainLocus m_parentLocus;
};

/// A bridge between two residues.
///
/// \code
/// // A disulfide takes two hydrogens away.
/// const MoleculeEntity twoHydrogensLess = factory->modifyMolecule({}, u"H-2"_s, 1);
/// const Link disulfide(twoHydrogensLess, {{0, 7}, {1, 7}});
/// \endcode
class ZEL_CHEMICAL_MODEL_EXPORT Link
{
public:
    /// The two residue positions that a link joins.
    using Connection = std::pair<std::pair<int, int>, std::pair<int, int>>;

    /// Makes a link of no mass from position (0, 0) to itself.
    Link();

    /// Makes a link that adds `entity` to its molecule.
    Link(MoleculeEntity entity, Connection connection);

    /// What the bridge adds to the molecule; often a loss, as the two hydrogens of a disulfide.
    MoleculeEntity entity() const { return m_entity; }

    /// The two residue positions that it joins.
    const Connection connection() const { return m_connection; }

    /// Compares entities and connections. A link from a to b differs from one from b to a.
    bool operator==(const Link& other) const;

private:
    MoleculeEntity m_entity;
    Connection m_connection;
};

/// A group on a molecule, with the positions where it may sit: one if the position is known,
/// several if it is open, none if nothing is known.
///
/// \code
/// const MoleculeEntity phospho = factory->constructMolecule(u"HPO3"_s);
/// const Modification onResidue3(phospho, {{0, 3}});            // placed
/// const Modification onEither(phospho, {{0, 3}, {0, 4}});      // one group, two candidates
/// const Modification somewhere(phospho, {});                   // place unknown
/// \endcode
class ZEL_CHEMICAL_MODEL_EXPORT Modification
{
public:
    /// Makes a modification of no mass without a position.
    Modification();

    /// Makes a modification that adds `entity` once, however many positions it has.
    Modification(MoleculeEntity entity, const QList<std::pair<int, int>>& possibleChainLocations);

    MoleculeEntity entity() const { return m_entity; } ///< The group that is added.

    /// The residue positions where it may sit.
    const QList<std::pair<int, int>>& possibleChainLocations() const
    {
        return m_possibleChainLocations;
    }

    double
    averageMass() const; ///< The group's average mass in daltons, rebuilt as MoleculeEntity does.
    double monoMass() const;               ///< The group's monoisotopic mass in daltons.
    const ChemicalFormula formula() const; ///< The group's composition.

    /// Compares the groups, then the positions in their order.
    bool operator==(const Modification& other) const;

    /// Orders by average mass, monoisotopic mass, printed formula and positions. Masses that agree
    /// to 12 digits count as equal, so the order is not transitive across a run of near-equal
    /// masses. Formulas compare by UTF-16 code unit, positions as sequences of pairs. A mass that
    /// is not a number is neither less nor greater. For callers: nothing in the library sorts by
    /// it.
    bool operator<(const Modification& other) const;

private:
    MoleculeEntity m_entity;
    QList<std::pair<int, int>> m_possibleChainLocations;
};

/// A molecule of chains, links and modifications with its totals.
///
/// The totals are stored beside the parts and nothing but the code that builds the value keeps the
/// two in step: constructStructuredMolecule() sums them. Masses are in daltons. Mind the order:
/// here the monoisotopic mass comes first.
struct ZEL_CHEMICAL_MODEL_EXPORT StructuredMolecule
{
    ChemicalFormula formula;                   ///< The total composition.
    MoleculeType type = MoleculeType::Unknown; ///< What the molecule is.
    double monoMass = 0.0;                     ///< The total monoisotopic mass.
    double averageMass = 0.0;                  ///< The total average mass.
    QList<Chain> chains;                       ///< The chains.
    QList<Link> links;                         ///< The links between residues.
    QList<Modification> modifications; ///< Its own modifications, with any number of positions.
    QString name;                      ///< The readable name.
    QString code;                      ///< The short label.
    QString description;               ///< Stays empty; nothing reads it.
    QList<TransformationEntity> transformations; ///< The history, oldest step first.
};

/// @}

} // namespace chem

Q_DECLARE_TYPEINFO(chem::ParentChainLocus, Q_RELOCATABLE_TYPE);
Q_DECLARE_TYPEINFO(chem::Chain, Q_RELOCATABLE_TYPE);
Q_DECLARE_TYPEINFO(chem::Link, Q_RELOCATABLE_TYPE);
Q_DECLARE_TYPEINFO(chem::Modification, Q_RELOCATABLE_TYPE);
