// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include "import/networks.h"
#include "import/phones_source.h"

namespace tool {

// The catalogue source made of the phones' source and of what the operators' data gave. Throws
// ToolError when the phones' source lacks a table or a column, or a value cannot be written; `path`
// is that of the result, for messages.
std::string WriteImport(const std::string& path, const PhonesSource& phones,
                        const Providers& providers, const Networks& networks, ImportReport& report);

}  // namespace tool
