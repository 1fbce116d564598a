// SPDX-License-Identifier: MIT
#include "session/call_frame.h"

#include <cstdint>
#include <cstring>

#include "session/session.h"
#include "session/trace.h"

namespace vel {
namespace {

// Writes one fragment made of up to three texts. It is lost when there is no memory to join them,
// like any fragment that cannot be written.
void Fragment(const char* a, const char* b, const char* c = "") {
    Guarded([&] {
        String text(a);
        text.Append(b);
        text.Append(c);
        Trace(text);
    });
}

void EndLine() {
    Trace("\r\n");
}

// A line of two fragments: the label with the direction, and the value.
void Value(const char* prefix, const char* label, const char* direction, const char* text) {
    Fragment(prefix, label, direction);
    Trace(text);
    EndLine();
}
void Value(const char* prefix, const char* label, const char* direction, long number) {
    Fragment(prefix, label, direction);
    Trace(number);
    EndLine();
}

}  // namespace

CallFrame::CallFrame(const char* name) : name_(name) {
    Line("Enter: ", name_);
    ++Velmor::getVelmor()->traceDepth;
}

CallFrame::~CallFrame() {
    --Velmor::getVelmor()->traceDepth;
    Line("Exit: ", name_);
    if (hasResult_ && IsTracing()) {
        Guarded([&] { Line("Result := ", String::FromLong(result_).c_str()); });
    }
}

void CallFrame::SetResult(long result) {
    result_ = result;
    hasResult_ = true;
}

void CallFrame::In(const char* label, long value) {
    if (IsTracing()) {
        Value("", label, " <= ", value);
    }
}

void CallFrame::In(const char* label, const char* text) {
    if (IsTracing()) {
        Value("", label, " <= ", text);
    }
}

void CallFrame::InAddress(const char* label, const void* address) {
    if (IsTracing()) {
        Value("(long)", label, " <= ", static_cast<long>(reinterpret_cast<std::intptr_t>(address)));
    }
}

void CallFrame::Out(const char* label, long value) {
    if (IsTracing()) {
        Value("", label, " => ", value);
    }
}

void CallFrame::Out(const char* label, const String& text) {
    if (IsTracing()) {
        Value("", label, " => ", text.c_str());
    }
}

void CallFrame::Out(const char* label, const char* buffer, long size) {
    if (IsTracing()) {
        Guarded([&] {
            const bool empty = buffer == nullptr || size <= 0;
            const auto length = empty ? 0 : strnlen(buffer, static_cast<std::size_t>(size));
            Out(label, String::FromBytes(empty ? "" : buffer, static_cast<int>(length)));
        });
    }
}

void CallFrame::Line(const char* text, const char* value) {
    if (IsTracing()) {
        Fragment(text, value);
        EndLine();
    }
}

void CallFrame::Line2(const char* label, const String& text) {
    if (IsTracing()) {
        Trace(label);
        Trace(text.c_str());
        EndLine();
    }
}

long InFrame(const char* name, long failure, FrameBody body) {
    CallFrame frame(name);
    frame.SetResult(failure);
    const long result = body(frame);
    frame.SetResult(result);
    return result;
}

long Framed(const char* name, long failure, FrameBody body) {
    long result = failure;
    Guarded([&] { result = InFrame(name, failure, body); });
    return result;
}

}  // namespace vel
