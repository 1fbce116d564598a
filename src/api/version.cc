// SPDX-License-Identifier: MIT
#include "session/call_frame.h"
#include "velmor.h"

using namespace vel;

namespace {

constexpr long kLibraryVersion = 150;

}  // namespace

long Velmor_GetVersionLibrary(void) {
    return Framed("Velmor_GetVersionLibrary", kLibraryVersion,
                  [](CallFrame&) -> long { return kLibraryVersion; });
}
