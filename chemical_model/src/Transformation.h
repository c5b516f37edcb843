#pragma once

#include "MoleculeEntity.h"
#include <zel_chemical_model/ChemicalModelExport.h>

#include <concepts>
#include <memory>

namespace chem {

class ChainFragmenter;
class EstablishLink;
class Modify;
class Unmodify;

/// \addtogroup steps
/// @{

/// The kinds of steps. The numbers are stable; 2, 3, 4 and 6 are reserved.
enum TransformationType {
    ModifyTransformation = 0,          ///< Modify.
    UnmodifyTransformation = 1,        ///< Unmodify.
    EstablishLinkTransformation = 5,   ///< EstablishLink.
    ChainFragmenterTransformation = 7, ///< ChainFragmenter.
};

/// A step that takes a molecule and gives a new one.
///
/// The result carries a history: its transformations() are those of the input with one more entry
/// at the end, which holds the step and the input. Steps do not change once made and their
/// transform() is const, so one step may be applied from any number of threads at once.
///
/// A step that cannot be done throws its message as a plain `const char*`, and the input stays as
/// it was:
///
/// \code
/// try {
///     molecule = Unmodify(modification).transform(molecule);
/// } catch (const char* message) {
///     qWarning("%s", message);
/// }
/// \endcode
class ZEL_CHEMICAL_MODEL_EXPORT Transformation
{
public:
    Transformation() = default;
    /// Nothing to copy: a step's arguments belong to the derived class.
    Transformation(const Transformation&) = default;
    /// Nothing to assign.
    Transformation& operator=(const Transformation&) = default;
    virtual ~Transformation();

    /// Applies the step.
    virtual MoleculeEntity transform(MoleculeEntity molecule) const = 0;

    /// What the step does.
    virtual TransformationType type() const = 0;
};

/// Which steps a TransformationEntity can hold.
namespace TransformationEntityInternal {

/// The steps that a TransformationEntity can hold.
template <typename T>
concept TransformationStep = std::same_as<T, ChainFragmenter> || std::same_as<T, EstablishLink> ||
    std::same_as<T, Modify> || std::same_as<T, Unmodify>;

} // namespace TransformationEntityInternal

/// One entry of a molecule's history: a step with its arguments and the molecule as it was before.
///
/// An entry keeps that molecule alive, and so all earlier states: a molecule that went through n
/// steps holds n molecules, each with its own, shorter list of entries. A copy shares both parts. A
/// moved-from entry may only be assigned to or destroyed.
class ZEL_CHEMICAL_MODEL_EXPORT TransformationEntity : public Transformation
{
public:
    /// Records `step`, as applied to `priorMolecule`.
    template <TransformationEntityInternal::TransformationStep T>
    TransformationEntity(T step, MoleculeEntity priorMolecule);

    /// Shares the step and the molecule of `other`.
    TransformationEntity(const TransformationEntity& other);
    /// Takes the step and the molecule of `other`, which may then only be assigned to or destroyed.
    TransformationEntity(TransformationEntity&& other) noexcept;
    /// Shares the step and the molecule of `other`.
    TransformationEntity& operator=(const TransformationEntity& other);
    /// Takes the step and the molecule of `other`, which may then only be assigned to or destroyed.
    TransformationEntity& operator=(TransformationEntity&& other) noexcept;
    ~TransformationEntity() override;

    /// Applies the recorded step to any molecule. The entry itself stays as it is.
    MoleculeEntity transform(MoleculeEntity molecule) const override;

    /// What the recorded step does.
    TransformationType type() const override;

    /// The molecule before the step.
    MoleculeEntity original();

private:
    std::shared_ptr<const Transformation> m_step;
    MoleculeEntity m_priorMolecule;
};

/// @}

} // namespace chem

Q_DECLARE_TYPEINFO(chem::TransformationEntity, Q_RELOCATABLE_TYPE);
