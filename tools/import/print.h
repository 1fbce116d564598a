// SPDX-License-Identifier: MIT
#pragma once

#include "import/report.h"

namespace tool {

// Prints on standard output.
void PrintReport(const ImportReport& report);

}  // namespace tool
