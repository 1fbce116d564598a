// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include "import/identifiers.h"

namespace tool {

// Makes the catalogue source from the phones' source and the operators' data. Throws a ToolError
// when the phones' source lacks a table or column, or when a value cannot be written. `path`: the
// file of the result, for error messages.
std::string WriteImport(const std::string& path, const InputCatalogue& phones,
                        const Providers& providers, const Networks& networks,
                        const Identifiers& identifiers, ImportReport& report);

}  // namespace tool
