// SPDX-License-Identifier: MIT
#pragma once

#include "catalogue/finding.h"

namespace tool {

// A record of a catalogue and the line that it stands in.
struct CatalogueRecord {
    int line = 0;
    std::vector<std::string> fields;
};

// The records in the bytes of a catalogue, deciphered; adds what is wrong with single lines.
std::vector<CatalogueRecord> ReadRecords(const std::string& bytes, Findings& findings);

}  // namespace tool
