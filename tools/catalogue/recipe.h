// SPDX-License-Identifier: MIT
#pragma once

#include "catalogue/catalogue.h"
#include "detection/recipe.h"

namespace tool {

// Reads the recipe in a table of a catalogue as the library does. Without a table it has no steps.
vel::Recipe ReadRecipe(const CatalogueTable* table);

// The key that the recipe makes from an answer.
std::string MakeKey(const vel::Recipe& recipe, const std::string& answer);

}  // namespace tool
