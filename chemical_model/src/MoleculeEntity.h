#pragma once

#include "ChemicalFormula.h"
#include "MoleculeType.h"
#include <zel_chemical_model/ChemicalModelExport.h>

#include <QList>
#include <QString>

#include <concepts>
#include <cstddef>
#include <memory>

namespace chem {

class AminoAcid;
class Chain;
class Link;
class Modification;
class Molecule;
class NamedMolecule;
class TransformationEntity;
struct StructuredMolecule;

/// Which types a MoleculeEntity can hold.
namespace MolecularEntityInternal {

class Concept;

/// The types that a MoleculeEntity can hold.
template <typename T>
concept MoleculeValue =
    std::same_as<T, std::nullptr_t> || std::same_as<T, int> || std::same_as<T, double> ||
    std::same_as<T, Modification> || std::same_as<T, StructuredMolecule> ||
    std::same_as<T, AminoAcid> || std::same_as<T, Molecule> || std::same_as<T, NamedMolecule>;

} // namespace MolecularEntityInternal

/// \addtogroup molecules
/// @{

/// Any molecule as one immutable value: a bare mass, a residue, a group, a whole multi-chain
/// molecule.
///
/// Whatever it holds, it answers the same questions; what the held value does not have comes back
/// as 0.0, an empty text, an empty list or an empty formula. A copy costs one atomic increment.
///
/// \code
/// const MoleculeEntity mass = 1045.5;                                  // a bare mass, in daltons
/// const MoleculeEntity group = factory->constructMolecule(u"HPO3"_s);  // 79.96633 Da
/// \endcode
///
/// An entity made from a Modification is a placeholder that knows nothing of it: it answers every
/// question with the default. A moved-from entity may only be assigned to or destroyed. Entities
/// may be read and copied from any number of threads at once.
class ZEL_CHEMICAL_MODEL_EXPORT MoleculeEntity
{
public:
    /// Holds `value`: nothing, a whole number or a number of daltons, a Modification, a
    /// StructuredMolecule, an AminoAcid, a Molecule or a NamedMolecule. Implicit on purpose, so
    /// that any of these can be handed to what takes an entity.
    template <MolecularEntityInternal::MoleculeValue T>
    MoleculeEntity(T value);

    /// Shares the held value.
    MoleculeEntity(const MoleculeEntity& other);
    /// Takes the held value of `other`, which may then only be assigned to or destroyed.
    MoleculeEntity(MoleculeEntity&& other) noexcept;
    /// Shares the held value.
    MoleculeEntity& operator=(const MoleculeEntity& other);
    /// Takes the held value of `other`, which may then only be assigned to or destroyed.
    MoleculeEntity& operator=(MoleculeEntity&& other) noexcept;
    ~MoleculeEntity();

    /// The average mass in daltons. If the stored mass is exactly 0.0 it is computed from
    /// formula() with the default factory, at each call; 0.0 if there is no formula either.
    double averageMass() const;

    /// The monoisotopic mass in daltons, computed likewise if the stored one is exactly 0.0.
    double monoMass() const;

    /// The composition. A peptide or oligonucleotide without a stored formula is laid out from its
    /// sequence() with the default factory, at each call; else the result is empty.
    const ChemicalFormula formula() const;

    /// What it is: the stored type of a structured molecule, AminoAcid for an amino acid, else
    /// Unknown.
    MoleculeType type() const;

    /// The sequence text of a structured molecule, composed at each call; else empty. Residues
    /// stand with their codes, a modification of a residue as "[]" behind it, the ends of link n as
    /// "[*n]", chains are separated by "/", and each modification of the whole molecule ends the
    /// text with "[]".
    QString sequence() const;

    QString name() const; ///< The readable name, or an empty text.
    QString code() const; ///< The short label, or an empty text.

    /// Always empty: nothing in the library describes a molecule.
    QString description() const;

    const QList<Chain> chains() const; ///< The chains of a structured molecule.
    /// Its own modifications. A step puts one with a single position on its residue instead.
    const QList<Modification> modifications() const;
    const QList<Link> links() const;                           ///< Its links.
    const QList<TransformationEntity> transformations() const; ///< Its history, oldest step first.

    /// Compares chemistry and nothing else: both masses to 12 digits and the formulas as printed by
    /// ChemicalFormula::toString(), all as averageMass(), monoMass() and formula() give them. Type,
    /// names and parts take no part. A mass that is not a number equals nothing, not even itself.
    bool operator==(const MoleculeEntity& other) const;

private:
    std::shared_ptr<const MolecularEntityInternal::Concept> m_concept;
};

/// @}

} // namespace chem

Q_DECLARE_TYPEINFO(chem::MoleculeEntity, Q_RELOCATABLE_TYPE);
