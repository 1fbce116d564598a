// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

#include "import/providers.h"

namespace tool {

// The code of the networks of no country (MCC 901): ISO 3166 leaves it to its users.
constexpr char kInternational[] = "xx";

// A row of Android's list of access points.
struct AndroidRow {
    std::string number;  // five or six digits
    std::string carrier;
    AccessPoint point;
    bool forInternet = false;  // otherwise only its number and carrier count

    bool IsForReseller() const { return !point.cards.empty(); }
    bool proxy = false;  // whether it has this value, for which a catalogue has no column
};

// Reads the rows of a list, or of all lists of a folder in the order of their names. Counts
// malformed rows and rows for another use, and leaves out the malformed rows.
std::vector<AndroidRow> ReadAndroidRows(const std::string& path, ImportReport& report);

// Adds what Android's list of access points knows about numbers that no operator of `providers`
// holds, and the names that it gives to operators. `path`: the list (apns-conf.xml), or a folder
// with a list for each country. docs/import.md has the rules. Throws a ToolError when a file is no
// list, or the folder has none.
void AddAndroidList(const std::string& path, Providers& providers, ImportReport& report);

}  // namespace tool
