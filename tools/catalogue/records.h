// SPDX-License-Identifier: MIT
#pragma once

#include "catalogue/finding.h"

namespace tool {

// A record of a catalogue: the number of its line, the fields, and the line as a source has it.
struct CatalogueRecord {
    int line = 0;
    std::vector<std::string> fields;
    std::string text;
};

// Reads the records of a catalogue in any form. Adds the findings about single lines.
std::vector<CatalogueRecord> ReadRecords(const std::string& bytes, Findings& findings);

}  // namespace tool
