// SPDX-License-Identifier: MIT
// Part of the library only where the C++ runtime is shared.
#include "runtime/guard.h"

namespace vel {
namespace {

// Runs in the thread that loads the library, often the only thread, while memory is available.
__attribute__((constructor)) void PrepareLoadingThread() {
    PrepareThread();
}

}  // namespace
}  // namespace vel
