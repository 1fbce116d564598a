// SPDX-License-Identifier: MIT
#pragma once

#include "storage/encoded_copy.h"
#include "velmor.h"

namespace vel {

// Starts the session as Velmor_Initialise says, in that function's frame. Without the copy for
// programs that link the library's objects.
long OpenSession(const char* aDatabaseFile, Velmor_ReadFunction aReadFunction,
                 Velmor_SendFunction aSendFunction, EncodedCopy copy);

}  // namespace vel
