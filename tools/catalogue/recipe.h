// SPDX-License-Identifier: MIT
#pragma once

#include "catalogue/catalogue.h"
#include "detection/recipe.h"

namespace tool {

// The recipe in a table of a catalogue, as the library reads it; null gives one without steps.
vel::Recipe ReadRecipe(const CatalogueTable* table);

// The key that the recipe makes of an answer.
std::string MakeKey(const vel::Recipe& recipe, const std::string& answer);

}  // namespace tool
