// SPDX-License-Identifier: MIT
#pragma once

#include <map>
#include <string>

namespace tool {

// English names of countries by their two-letter codes in small letters, from the iso-codes list
// (iso_3166-1.json). The name in common use goes before the formal one. Throws ToolError when the
// file cannot be read or is something else.
std::map<std::string, std::string> ReadCountryNames(const std::string& path);

}  // namespace tool
