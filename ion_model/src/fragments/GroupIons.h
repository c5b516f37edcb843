#pragma once

#include "Backbone.h"
#include "Composition.h"
#include "fragments/SeriesMasses.h"

#include <QString>

#include <optional>
#include <vector>

namespace ions {

/// A part of the glycans of a molecule, which falls off, and what stays.
struct GlycanCut
{
    QString lost;            ///< "HexNAcHex2", in the order of the glycans.
    double mass = 0;         ///< Of what is lost: monoisotopic, in daltons.
    Composition composition; ///< Of what is lost.
    int left = 0;            ///< How many monosaccharides stay.
};

/// All ways in which monosaccharides stay on a molecule, whichever glycan they are of: from none to
/// all but one, fewest first. Nothing where there are more than 1,000.
std::optional<std::vector<GlycanCut>> glycanCuts(const Backbone& backbone);

/// A small ion of a group alone.
struct LoneIon
{
    QString name;            ///< As it stands in brackets: "HexNAc-H2O", "TMT127N".
    double mass = 0;         ///< Less its proton: monoisotopic, in daltons.
    Composition composition; ///< Less its proton, with what is lost.
    BreakGroups lost;        ///< What has gone from that.
};

/// The oxonium ions of the glycans of a molecule, each once: one to three monosaccharides, and the
/// known ions of their rings. Nothing where there are more than 1,000.
std::optional<std::vector<LoneIon>> oxoniumIons(const Backbone& backbone);

/// The reporter ions of the labels of a molecule, each once.
std::vector<LoneIon> reporterIons(const Backbone& backbone);

/// The ions of one of these two series; none where there are too many.
std::vector<LoneIon> loneIons(const Backbone& backbone, Series series);

} // namespace ions
