#pragma once

#include "Backbone.h"
#include "FragmentIons.h"

#include <QString>

namespace ions {

/// The label of the ion with this number of a run, which shows these losses, as PSI's mzPAF writes
/// it; empty where the backbone has no such ion.
QString ionLabel(const Backbone& backbone, const IonRun& run, qsizetype number,
                 const QString& losses);

} // namespace ions
