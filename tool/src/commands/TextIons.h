#pragma once

#include "chemistry/Substance.h"
#include "commands/IonChoice.h"
#include "program/Program.h"
#include <Backbone.h>
#include <FragmentIons.h>

#include <optional>
#include <string>

namespace tool {

/// Fragment ions and the molecule that they come from.
struct TextIons
{
    ions::Backbone backbone;
    ions::FragmentIons fragments;
};

/// The ions of the only text of an argument. Nothing where it is refused, which is reported.
std::optional<TextIons> readTextIons(const std::string& argument, Notation notation,
                                     const IonChoice& choice, Task* task);

} // namespace tool
