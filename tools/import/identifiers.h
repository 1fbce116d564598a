// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <vector>

#include "import/input_catalogue.h"
#include "import/networks.h"

namespace tool {

// The identifiers of what an import writes.
struct Identifiers {
    std::map<std::string, std::string> countries;    // by code
    std::vector<std::string> networks;               // of each network
    std::vector<std::vector<std::string>> settings;  // of each network's offers
    std::map<std::string, std::int64_t> highest;     // by table, also of rows that are gone
};

// Identifiers that count from 1; those of countries are their codes.
Identifiers CountIdentifiers(const InputCatalogue& phones, const Providers& providers,
                             const Networks& networks);

// What is in the previous catalogue keeps its identifiers, and new rows get numbers that were never
// used; docs/import.md has the rules. Throws a ToolError when a phone has the identifier of another
// one, or no number is left.
Identifiers KeepIdentifiers(const InputCatalogue& previous, const InputCatalogue& phones,
                            const Providers& providers, const Networks& networks,
                            ImportReport& report);

}  // namespace tool
