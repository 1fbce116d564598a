// SPDX-License-Identifier: MIT
#include "api/call_frame.h"
#include "api/velmor.h"

namespace {

constexpr long kLibraryVersion = 150;

}  // namespace

long Velmor_GetVersionLibrary(void) {
    return Framed("Velmor_GetVersionLibrary", kLibraryVersion,
                  [](CallFrame&) -> long { return kLibraryVersion; });
}
