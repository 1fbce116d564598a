// SPDX-License-Identifier: MIT
#pragma once

#include <vector>

#include "catalogue/catalogue.h"
#include "diagnosis/identification.h"

namespace tool {

// A line to add to a table of the source. A missing table gets its marker lines too.
struct AdvisedLine {
    std::string table;
    std::string line;
    std::string before;  // the line of the source that must come after it; empty: none
};

// The access point of an advised setting where the phone did not tell one. The user must replace
// it.
constexpr char kAdvisedApn[] = "access-point-name";

// The option of velmor import that names the source of a table's lines: an import writes its
// catalogue anew each time.
const char* ImportOption(const std::string& table);

// The identifier of the manufacturer that the catalogue knows from any of the answers; empty: none.
std::string MakerOf(const Identification& found, const Catalogue& catalogue);

// The lines that the catalogue lacks to know the phone and the network, with free identifiers. None
// for what it knows, and none without a usable response.
std::vector<AdvisedLine> Advise(const Identification& found, const Catalogue& catalogue);

}  // namespace tool
