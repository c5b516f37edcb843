#pragma once

#include "ProForma.h"

#include <QSet>
#include <QString>

#include <utility>

namespace ions {

/// The labels of a peptidoform that is written from a molecule: each joins one thing.
class LabelNames
{
public:
    /// Notes a label that a name has, so that nothing else is given it.
    void keep(const ModificationLabel& label);

    /// A label that nothing has.
    ModificationLabel fresh(ModificationLabel::Kind kind);

    /// Whether nothing has the label so far; from now on something has. Ambiguous labels hold for
    /// one chain.
    bool take(const ModificationLabel& label, qsizetype chain);

    /// A modification with its label, or without where something has that already.
    Modification withOwnLabel(Modification modification, qsizetype chain);

private:
    QSet<QString> m_known; ///< Of names, and those made up.
    QSet<std::pair<qsizetype, QString>> m_taken;
};

} // namespace ions
