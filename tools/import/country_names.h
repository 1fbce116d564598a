// SPDX-License-Identifier: MIT
#pragma once

#include <map>
#include <string>

namespace tool {

// Reads the English names of countries from the list of iso-codes (iso_3166-1.json), by their
// two-letter codes in small letters: the common name if there is one, else the formal name. Throws
// a ToolError when the file cannot be read or is something else.
std::map<std::string, std::string> ReadCountryNames(const std::string& path);

}  // namespace tool
