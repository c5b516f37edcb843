#pragma once

#include "Parsed.h"
#include "ProForma.h"
#include "support/TextCursor.h"

#include <QString>

#include <optional>

namespace ions {

/// Steps over one description of a modification, up to a "|", a "#" or the bracket that closes it,
/// which is "]" or "}".
std::optional<Error> takeTag(TextCursor* cursor, char16_t closing, Tag* tag);

/// The canonical text of a tag.
QString tagText(const Tag& tag);

/// Steps over digits, with a full stop among them or without.
std::optional<Error> takeDecimal(TextCursor* cursor);

/// Steps over a character that names may have; Error for controls and halves of characters.
std::optional<Error> takeGraphic(TextCursor* cursor);

} // namespace ions
