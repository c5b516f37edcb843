#pragma once

#include "Parsed.h"
#include "ProForma.h"
#include "support/TextCursor.h"

#include <optional>

namespace ions {

/// Which brackets hold a modification.
enum class ModificationBrackets {
    Labelled,   ///< `[...]`, with a label or without.
    Unlabelled, ///< `[...]` of a rule, without a label.
    Labile      ///< `{...}`, without a label.
};

/// Steps over a modification in its brackets, the first of which comes next.
std::optional<Error> takeModification(TextCursor* cursor, ModificationBrackets brackets,
                                      Modification* modification);

/// Steps over a kind of place: a residue, or an end with a residue or without.
Parsed<PlaceRule> takePlace(TextCursor* cursor);

/// A label with its score, as canonical text: "#g1(0.9)".
QString labelText(const ModificationLabel& label);

/// What stands between the brackets, as canonical text.
QString modificationText(const Modification& modification);

/// A kind of place as canonical text.
QString placeText(const PlaceRule& place);

/// Places separated by commas.
QString placesText(const std::vector<PlaceRule>& places);

} // namespace ions
