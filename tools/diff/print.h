// SPDX-License-Identifier: MIT
#pragma once

#include "diff/change.h"
#include "support/print.h"

namespace tool {

// Prints on standard output, the counts first. Texts of the catalogues are made harmless.
void PrintDifference(const Difference& difference);
Json DescribeDifference(const Difference& difference);

}  // namespace tool
