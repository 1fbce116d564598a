// SPDX-License-Identifier: MIT
#include "api/call_frame.h"

#include <cstdint>
#include <cstring>

#include "api/session.h"
#include "api/trace.h"

namespace {

// Writes one fragment made of up to three texts. When there is no memory to join them it is lost,
// as any fragment that cannot be written.
void Fragment(const char* a, const char* b, const char* c = "") {
    Guarded([&] {
        vel::String text = vel::String(a) + b + c;
        Trace(text);
    });
}

void EndLine() {
    Trace("\r\n");
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
        Guarded([&] { Line("Result := ", vel::String::FromLong(result_).c_str()); });
    }
}

void CallFrame::SetResult(long result) {
    result_ = result;
    hasResult_ = true;
}

void CallFrame::In(const char* label, long value) {
    if (IsTracing()) {
        Fragment(label, " <= ");
        Trace(value);
        EndLine();
    }
}

void CallFrame::In(const char* label, const char* text) {
    if (IsTracing()) {
        Fragment(label, " <= ");
        Trace(text);
        EndLine();
    }
}

void CallFrame::InAddress(const char* label, const void* address) {
    if (IsTracing()) {
        Fragment("(long)", label, " <= ");
        Trace(static_cast<long>(reinterpret_cast<std::intptr_t>(address)));
        EndLine();
    }
}

void CallFrame::Out(const char* label, long value) {
    if (IsTracing()) {
        Fragment(label, " => ");
        Trace(value);
        EndLine();
    }
}

void CallFrame::Out(const char* label, const vel::String& text) {
    if (IsTracing()) {
        Fragment(label, " => ");
        Trace(text.c_str());
        EndLine();
    }
}

void CallFrame::Out(const char* label, const char* buffer, long size) {
    if (IsTracing()) {
        Guarded([&] {
            const bool empty = buffer == nullptr || size <= 0;
            const auto length = empty ? 0 : strnlen(buffer, static_cast<std::size_t>(size));
            Out(label, vel::String::FromBytes(empty ? "" : buffer, static_cast<int>(length)));
        });
    }
}

void CallFrame::Line(const char* text, const char* value) {
    if (IsTracing()) {
        Fragment(text, value);
        EndLine();
    }
}

void CallFrame::Line2(const char* label, const vel::String& text) {
    if (IsTracing()) {
        Trace(label);
        Trace(text.c_str());
        EndLine();
    }
}

long InFrame(const char* name, long failure, const FrameBody& body) {
    CallFrame frame(name);
    frame.SetResult(failure);
    const long result = body(frame);
    frame.SetResult(result);
    return result;
}

long Framed(const char* name, long failure, const FrameBody& body) {
    long result = failure;
    Guarded([&] { result = InFrame(name, failure, body); });
    return result;
}
