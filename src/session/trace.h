// SPDX-License-Identifier: MIT
#pragma once

#include "foundation/string.h"
#include "velmor.h"

// The trace log: plain text, appended fragment by fragment. The file is opened and closed for each
// fragment, so that the log is complete even if the host crashes. Three blanks for each call that
// has not returned yet precede every fragment, the line end "\r\n" included.
//
// Silent: a fragment that cannot be written, because memory or a writable log is missing, is lost
// and nothing else changes. With the session's trace switch off the writers return at once.

// Writes the text up to its first NUL; only the indentation when the text has no buffer.
VELMOR_EXPORT void Trace(vel::String& text);
// Writes the number in decimal.
VELMOR_EXPORT void Trace(long number);
// Writes the text; only the indentation when it is null.
VELMOR_EXPORT void Trace(const char* text);

namespace vel {

// Whether the session traces at all.
bool IsTracing();

// Path of the log. Defined in a file of its own, so that a program which links the library's
// objects can have its log elsewhere.
extern const char* const kTraceLogPath;

}  // namespace vel
