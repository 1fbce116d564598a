// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

#include "import/providers.h"

namespace tool {

// A row of Android's list of access points.
struct AndroidRow {
    std::string number;  // five or six digits
    std::string carrier;
    AccessPoint point;
    bool forInternet = false;  // otherwise only its number and carrier count
    bool authType = false;     // whether it has these values, for which a catalogue has no column
    bool protocol = false;
    bool proxy = false;
};

// Reads the rows of a list, or of all lists of a folder in the order of their names. Counts
// malformed rows and rows for another use, and leaves out the malformed rows.
std::vector<AndroidRow> ReadAndroidRows(const std::string& path, ImportReport& report);

}  // namespace tool
