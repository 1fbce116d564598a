// SPDX-License-Identifier: MIT
#pragma once

#include <climits>

#include "session/session.h"

// The trace log: plain text, appended fragment by fragment. The file is opened and closed for each
// fragment, so that the log is complete even if the host crashes. Three blanks for each call that
// has not returned yet precede every fragment, the line end "\r\n" included.
namespace vel {

// Appends a fragment to the log: up to three texts, then a number in decimal. A part that is null
// is left out. Of the first text at most `size` bytes count: it may be a host's buffer, which has
// no terminator. A fragment that cannot be written, because memory or a writable log is missing, is
// lost, and nothing else changes.
void AppendTrace(const Velmor& session, const char* first, const char* second, const char* third,
                 long size, const long* number);

// The same when the session traces. Inline: mostly it does not.
inline void WriteTrace(const Velmor& session, const char* first, const char* second = nullptr,
                       const char* third = nullptr, long size = LONG_MAX,
                       const long* number = nullptr) {
    if (session.traceSwitch) {
        AppendTrace(session, first, second, third, size, number);
    }
}

inline void WriteTrace(const Velmor& session, const char* text, long number) {
    WriteTrace(session, text, nullptr, nullptr, LONG_MAX, &number);
}

// Path of the log. Defined in a file of its own, so that a program which links the library's
// objects can have its log elsewhere.
extern const char* const kTraceLogPath;

}  // namespace vel
