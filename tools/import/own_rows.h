// SPDX-License-Identifier: MIT
#pragma once

#include "import/input_catalogue.h"
#include "import/providers.h"

namespace tool {

// Reads the networks, keys, settings and countries of a keeper's own source; docs/import.md has the
// rules. `lists`: what the import has read before, with the countries that a row can name too.
// Throws a ToolError with the line of a row that refers to nothing, or contradicts another.
Providers ReadOwnRows(const InputCatalogue& own, const vel::Recipe& recipe, const Providers& lists,
                      ImportReport& report);

// Adds a keeper's own operators and countries. They win over those that are there.
void AddOwn(Providers own, Providers& providers, ImportReport& report);

}  // namespace tool
