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

// The version of a catalogue that renews another, with this version or, when it is 0, one more than
// the previous. Hosts compare versions as numbers. `previous` can be null; without both numbers the
// version is `usual`. Throws a ToolError when the version would not be higher than the previous.
std::string NextVersion(const InputCatalogue* previous, long version, const std::string& usual);

}  // namespace tool
