// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include "import/providers.h"

namespace tool {

// Adds what Android's list of access points knows about numbers that no operator of `providers`
// holds, and the names that it gives to operators. `path`: the list (apns-conf.xml), or a folder
// with a list for each country. docs/import.md has the rules. Throws a ToolError when a file is no
// list, or the folder has none.
void AddAndroidList(const std::string& path, Providers& providers, ImportReport& report);

}  // namespace tool
