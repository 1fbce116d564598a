// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include "import/input_catalogue.h"
#include "import/report.h"

namespace tool {

// Gives the countries, networks and settings of a new catalogue their last identifiers, and makes
// its variables remember the highest numbers. What is in the previous catalogue too keeps its
// identifier, and the others get numbers that were never used; docs/import.md has the rules.
// `previous` can be null. `phones`: the file of the new catalogue's phones, for error messages.
// Throws a ToolError when a phone has the identifier of another phone, or when no number is left.
void GiveIdentifiers(const InputCatalogue* previous, const std::string& phones, Catalogue& fresh,
                     ImportReport& report);

}  // namespace tool
