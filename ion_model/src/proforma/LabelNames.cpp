#include "proforma/LabelNames.h"

#include "proforma/ModificationText.h"

using namespace Qt::StringLiterals;

namespace ions {

namespace {

/// Scores do not tell labels apart.
QString keyOf(const ModificationLabel& label)
{
    return labelText({label.kind, label.name, {}});
}

} // namespace

void LabelNames::keep(const ModificationLabel& label)
{
    m_known.insert(keyOf(label));
}

ModificationLabel LabelNames::fresh(ModificationLabel::Kind kind)
{
    const QString start = kind == ModificationLabel::Ambiguous ? u"g"_s : QString();
    for (int number = 1;; ++number) {
        const ModificationLabel label{kind, start + QString::number(number), {}};
        if (m_known.contains(keyOf(label)))
            continue;
        keep(label);
        return label;
    }
}

bool LabelNames::take(const ModificationLabel& label, qsizetype chain)
{
    const bool isOfChain = label.kind == ModificationLabel::Ambiguous;
    const std::pair key{isOfChain ? chain : -1, keyOf(label)};
    const bool isFree = !m_taken.contains(key);
    m_taken.insert(key);
    return isFree;
}

Modification LabelNames::withOwnLabel(Modification modification, qsizetype chain)
{
    const bool isLabelled = modification.label.kind != ModificationLabel::None;
    if (isLabelled && !take(modification.label, chain))
        modification.label = {};
    return modification;
}

} // namespace ions
