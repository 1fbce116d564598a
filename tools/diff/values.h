// SPDX-License-Identifier: MIT
#pragma once

#include "catalogue/identity/content.h"
#include "diff/change.h"

namespace tool {

// The values that differ between partners. A reference to partners is the same reference.
std::vector<Value> Differing(const Fields& old, const Fields& fresh, const Matching* references);

// The values of something that is added or gone.
std::vector<Value> AllValues(const Fields& fields, Kind kind);

}  // namespace tool
