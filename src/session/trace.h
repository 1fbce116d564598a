// SPDX-License-Identifier: MIT
#pragma once

#include "foundation/string.h"
#include "velmor.h"

// The trace log: plain text, appended fragment by fragment, each opened, written and closed on its
// own so that the log is complete whatever becomes of the host. Every fragment, the line end "\r\n"
// included, is preceded by three blanks for each framed call under way.
//
// Silent: a fragment that cannot be written, for want of memory or of a writable log, is lost and
// nothing else changes. With the session's trace switch off the writers return at once.

// Writes the text up to its first NUL; one without a buffer leaves the indentation alone.
VELMOR_EXPORT void Trace(vel::String& text);
// Writes the number in decimal.
VELMOR_EXPORT void Trace(long number);
// Writes the text; null leaves the indentation alone.
VELMOR_EXPORT void Trace(const char* text);

// Whether the session traces at all.
bool IsTracing();

// Path of the log. Defined in a file of its own, so that a program which links the library's
// objects can have its log elsewhere.
extern const char* const kTraceLogPath;
