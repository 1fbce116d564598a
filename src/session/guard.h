// SPDX-License-Identifier: MIT
#pragma once

#include "foundation/function_ref.h"

namespace vel {

// The one place where exceptions end. Runs the body; false when it threw.
bool Guarded(const FunctionRef<void()>& body);

}  // namespace vel
