// SPDX-License-Identifier: MIT
#pragma once

#include "catalogue/identity/content.h"
#include "diff/change.h"

namespace tool {

// What the change from one catalogue to the other means.
Difference Compare(const Content& old, const Content& fresh);

}  // namespace tool
