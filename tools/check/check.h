// SPDX-License-Identifier: MIT
#pragma once

#include "catalogue/catalogue.h"

namespace tool {

// What the check finds, in the order of the lines.
struct CheckResult {
    Findings findings;
    Findings allowed;  // the warnings that the catalogue allows
};

// Checks the bytes of a catalogue.
CheckResult CheckCatalogue(const std::string& bytes);

// The parts of the check; each adds its findings.
// Missing and repeated tables and columns.
void CheckSchema(const Catalogue& catalogue, Findings& findings);
// Keys and identifiers, and the columns that refer to them.
void CheckKeys(const Catalogue& catalogue, Findings& findings);
// Identification rows that no answer of a phone selects.
void CheckIdentification(const Catalogue& catalogue, Findings& findings);
// Dial strings and values that a host gets changed, cut or not at all.
void CheckSettings(const Catalogue& catalogue, Findings& findings);
// Values that only hosts read.
void CheckHostColumns(const Catalogue& catalogue, Findings& findings);

}  // namespace tool
