// SPDX-License-Identifier: MIT
#include "session/call_frame.h"
#include "velmor.h"

using namespace vel;

long Velmor_GetVersionLibrary(void) {
    return Framed("Velmor_GetVersionLibrary", VELMOR_VERSION,
                  [](CallFrame&) -> long { return VELMOR_VERSION; });
}
