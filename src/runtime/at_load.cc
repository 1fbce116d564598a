// SPDX-License-Identifier: MIT
// Part of the library only where the C++ runtime is shared.
#include "runtime/guard.h"

namespace vel {
namespace {

// Runs while there still is memory, in the thread that loads the library: often the only one.
__attribute__((constructor)) void PrepareLoadingThread() {
    PrepareThread();
}

}  // namespace
}  // namespace vel
