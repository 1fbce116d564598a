// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

namespace tool {

// What phones show instead of an operator's name. `country`: the two-letter code of its network's
// country; empty when it has none. `isShared`: whether the name alone is no key.
std::vector<std::string> ShownNames(const std::string& name, const std::string& country,
                                    bool isShared);

}  // namespace tool
