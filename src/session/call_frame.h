// SPDX-License-Identifier: MIT
#pragma once

#include "foundation/string.h"
#include "runtime/guard.h"
#include "session/session.h"

namespace vel {

// The frame in which every exported operation runs. It has the session, writes the entry line,
// keeps the trace depth, and writes the exit line and the result on every way out. Operations write
// their argument and output lines through it:
//
//     long Velmor_GetNrCountries(long aHandle) {
//         return Framed("Velmor_GetNrCountries", 0, [&](CallFrame& frame) -> long {
//             frame.In("aHandle", aHandle);
//             return CountOf(frame.session().countries);
//         });
//     }
class CallFrame {
  public:
    CallFrame(Velmor& session, const char* name);
    ~CallFrame();
    CallFrame(const CallFrame&) = delete;
    CallFrame& operator=(const CallFrame&) = delete;

    Velmor& session() const { return session_; }

    // "label <= value"; a pointer is written as its address under the label "(long)label".
    void In(const char* label, long value);
    void In(const char* label, const char* text);
    void In(const char* label, const String& text) { In(label, text.c_str()); }
    void InAddress(const char* label, const void* address);

    // "label => value"; at most `size` bytes of a host's buffer.
    void Out(const char* label, long value);
    void Out(const char* label, const String& text) { Out(label, text.c_str(), text.count); }
    void Out(const char* label, const char* buffer, long size);

    // A line of one fragment, text or number following the first text directly.
    void Line(const char* text, const char* value = nullptr);
    void Line(const char* text, long number);
    // A line of two fragments.
    void Line2(const char* label, const String& text);

    // The result that the frame reports. Without one there is no result line.
    void SetResult(long result);

  private:
    Velmor& session_;
    const char* name_;
    long result_ = 0;
    bool hasResult_ = false;
};

// What is done in a frame; returns the result.
using FrameBody = FunctionRef<long(CallFrame&)>;

// Runs the body in a frame and returns what it returns. When the body throws, the frame reports
// `failure` and the exception goes on: for operations that the library itself calls, which must not
// take a lack of memory for an answer.
long InFrame(Velmor& session, const char* name, long failure, FrameBody body);

// The frame of an exported operation: nothing is thrown out of it. A body that throws has the
// result `failure`.
long Framed(const char* name, long failure, FrameBody body);

}  // namespace vel
