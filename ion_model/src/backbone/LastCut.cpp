#include "backbone/LastCut.h"

#include <zel_chemical_model/Transformation.h>

namespace ions {

LastCut::LastCut(const chem::MoleculeEntity& molecule)
{
    QList<chem::TransformationEntity> steps = molecule.transformations();
    qsizetype last = 0;
    for (qsizetype i = 0; i < steps.size(); ++i) {
        if (steps.at(i).type() == chem::ChainFragmenterTransformation) {
            ++m_cuts;
            last = i;
        }
    }
    if (m_cuts == 0)
        return;
    const chem::MoleculeEntity cut =
        last + 1 < steps.size() ? steps[last + 1].original() : molecule;
    m_links = cut.links().size();
    m_modifications = cut.modifications();
}

bool LastCut::isOlder(const chem::Modification& modification) const
{
    return m_modifications.contains(modification);
}

} // namespace ions
