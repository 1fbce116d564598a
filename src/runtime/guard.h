// SPDX-License-Identifier: MIT
#pragma once

#include "runtime/function_ref.h"

namespace vel {

// Runs the body; false when it threw. The only function that stops exceptions.
bool Guarded(FunctionRef<void()> body);

// Has the C++ runtime allocate its state for this thread. A shared runtime does so at the thread's
// first exception otherwise, and aborts the process when there is no memory left.
void PrepareThread();

}  // namespace vel
