// SPDX-License-Identifier: MIT
#pragma once

#include "catalogue/identity/content.h"
#include "diff/change.h"

namespace tool {

// Compares two catalogues.
Difference Compare(const Content& old, const Content& fresh);

}  // namespace tool
