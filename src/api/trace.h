// SPDX-License-Identifier: MIT
#pragma once

#include "foundation/string.h"
#include "velmor.h"

// The exported writers of the trace log (session/trace.h). Each writes one fragment, and nothing
// while the session does not trace.

// Writes the text up to its first NUL; only the indentation when the text has no buffer.
VELMOR_EXPORT void Trace(vel::String& text);
// Writes the number in decimal.
VELMOR_EXPORT void Trace(long number);
// Writes the text; only the indentation when it is null.
VELMOR_EXPORT void Trace(const char* text);
