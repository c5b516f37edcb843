#include "Transformation.h"

#include "ChainFragmenter.h"
#include "EstablishLink.h"
#include "Modify.h"

#include <utility>

namespace chem {

Transformation::~Transformation() = default;

namespace TransformationEntityInternal {

template <typename T>
class Model final : public Transformation
{
public:
    explicit Model(T&& step)
        : m_step(std::move(step))
    {
    }

    MoleculeEntity transform(MoleculeEntity molecule) const override
    {
        return m_step.transform(std::move(molecule));
    }

    TransformationType type() const override { return m_step.type(); }

private:
    T m_step;
};

} // namespace TransformationEntityInternal

template <TransformationEntityInternal::TransformationStep T>
TransformationEntity::TransformationEntity(T step, MoleculeEntity priorMolecule)
    : m_step(std::make_shared<TransformationEntityInternal::Model<T>>(std::move(step)))
    , m_priorMolecule(std::move(priorMolecule))
{
}

template ZEL_CHEMICAL_MODEL_EXPORT TransformationEntity::TransformationEntity(ChainFragmenter,
                                                                              MoleculeEntity);
template ZEL_CHEMICAL_MODEL_EXPORT TransformationEntity::TransformationEntity(EstablishLink,
                                                                              MoleculeEntity);
template ZEL_CHEMICAL_MODEL_EXPORT TransformationEntity::TransformationEntity(Modify,
                                                                              MoleculeEntity);
template ZEL_CHEMICAL_MODEL_EXPORT TransformationEntity::TransformationEntity(Unmodify,
                                                                              MoleculeEntity);

TransformationEntity::TransformationEntity(const TransformationEntity& other) = default;
TransformationEntity::TransformationEntity(TransformationEntity&& other) noexcept = default;
TransformationEntity& TransformationEntity::operator=(const TransformationEntity& other) = default;
TransformationEntity&
TransformationEntity::operator=(TransformationEntity&& other) noexcept = default;
TransformationEntity::~TransformationEntity() = default;

MoleculeEntity TransformationEntity::transform(MoleculeEntity molecule) const
{
    return m_step->transform(std::move(molecule));
}

TransformationType TransformationEntity::type() const
{
    return m_step->type();
}

MoleculeEntity TransformationEntity::original()
{
    return m_priorMolecule;
}

} // namespace chem
