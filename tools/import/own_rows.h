// SPDX-License-Identifier: MIT
#pragma once

#include "import/input_catalogue.h"
#include "import/report.h"

namespace tool {

// Adds a keeper's own networks, keys, settings and countries to a catalogue that an import makes,
// before its rows get their last identifiers. They win over the rows that are there;
// docs/import.md has the rules. `recipe`: what detection applies to answers. Throws a ToolError
// with the line of an own row that refers to nothing, or contradicts another.
void AddOwnRows(const InputCatalogue& own, const vel::Recipe& recipe, Catalogue& catalogue,
                ImportReport& report);

}  // namespace tool
