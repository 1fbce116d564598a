// SPDX-License-Identifier: MIT
#pragma once

#include <vector>

#include "diagnosis/identification.h"

namespace tool {

// A line to add to a table of the source. A missing table gets its marker lines too.
struct AdvisedLine {
    std::string table;
    std::string line;
    std::string before;  // the line that it has to precede, as in the source; empty: any place
};

// The access point of an advised setting. The user must replace it, because no phone reports it.
constexpr char kAdvisedApn[] = "access-point-name";

// The lines that the catalogue of the session lacks to know the phone and network of the last
// detection, with free identifiers. None for what it knows, and none without a usable answer.
// `catalogue` is the path of the session's catalogue.
std::vector<AdvisedLine> Advise(const Identification& found, const std::string& catalogue);

}  // namespace tool
