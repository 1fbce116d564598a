// SPDX-License-Identifier: MIT
#pragma once

#include "catalogue/catalogue.h"

namespace tool {

// Everything that is wrong with the bytes of a catalogue, in the order of its lines.
Findings CheckCatalogue(const std::string& bytes);

// The parts of that, each adding what it finds.
// Tables and columns that are missing or repeated.
void CheckSchema(const Catalogue& catalogue, Findings& findings);
// Keys and identifiers, and what refers to them.
void CheckKeys(const Catalogue& catalogue, Findings& findings);
// Rows that no answer of a phone can select.
void CheckIdentification(const Catalogue& catalogue, Findings& findings);
// What becomes of settings on their way into a host's record.
void CheckSettings(const Catalogue& catalogue, Findings& findings);

}  // namespace tool
