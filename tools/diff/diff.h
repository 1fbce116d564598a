// SPDX-License-Identifier: MIT
#pragma once

#include "diff/change.h"
#include "diff/content.h"

namespace tool {

// What the change from one catalogue to the other means.
Difference Compare(const Content& old, const Content& fresh);

}  // namespace tool
