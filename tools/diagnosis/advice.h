// SPDX-License-Identifier: MIT
#pragma once

#include <vector>

#include "diagnosis/identification.h"

namespace tool {

// A line to add to a table of the catalogue's source. A table that the catalogue lacks comes whole.
struct AdvisedLine {
    std::string table;
    std::string line;
};

// The lines with which the catalogue in the session would know the phone and the network of the
// last detection, with identifiers that are free in it; none for what it knows already, or for what
// gave no usable answer. A new setting gets the placeholder below for its access point, which no
// phone tells.
constexpr char kAdvisedApn[] = "access-point-name";
std::vector<AdvisedLine> Advise(const Identification& found);

}  // namespace tool
