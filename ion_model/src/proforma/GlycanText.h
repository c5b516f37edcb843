#pragma once

#include "Parsed.h"
#include "ProForma.h"
#include "support/TextCursor.h"

#include <vector>

namespace ions {

/// Steps over a glycan: names of monosaccharides, whose case does not count, and formulas in
/// braces, each with its count. Stops at the mark that ends a tag or at the end of the text.
///
/// Names may start with other names ("HexNAc" with "HexN" with "Hex"), and taking the longest one
/// fails for "HexNeuAc". All ways through the text are followed at once, in time in proportion to
/// it; no text has two ways that reach its end. Refused where the last of them ends.
Parsed<std::vector<GlycanPart>> takeGlycan(TextCursor* cursor);

/// The canonical text; "Hex0" where nothing is left.
QString glycanText(const std::vector<GlycanPart>& glycan);

} // namespace ions
