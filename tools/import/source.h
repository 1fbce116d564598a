// SPDX-License-Identifier: MIT
#pragma once

#include "import/input_catalogue.h"
#include "import/networks.h"

namespace tool {

// Makes the catalogue from the phones' source and the operators' data. Its networks and settings
// are numbered from 1; the identifier of a country is its code. Throws a ToolError when the phones'
// source lacks a table or column.
Catalogue MakeCatalogue(const InputCatalogue& phones, const Providers& providers,
                        const Networks& networks, ImportReport& report);

}  // namespace tool
