// SPDX-License-Identifier: MIT
#include "session/call_frame.h"

#include <cstdint>

#include "session/trace.h"

namespace vel {
namespace {

constexpr char kLineEnd[] = "\r\n";

}  // namespace

CallFrame::CallFrame(Velmor& session, const char* name) : session_(session), name_(name) {
    Line("Enter: ", name_);
    ++session_.traceDepth;
}

CallFrame::~CallFrame() {
    --session_.traceDepth;
    Line("Exit: ", name_);
    if (hasResult_) {
        Line("Result := ", result_);
    }
}

void CallFrame::SetResult(long result) {
    result_ = result;
    hasResult_ = true;
}

void CallFrame::In(const char* label, long value) {
    WriteTrace(session_, label, " <= ");
    Line("", value);
}

void CallFrame::In(const char* label, const char* text) {
    WriteTrace(session_, label, " <= ");
    Line(text);
}

void CallFrame::InAddress(const char* label, const void* address) {
    WriteTrace(session_, "(long)", label, " <= ");
    Line("", static_cast<long>(reinterpret_cast<std::intptr_t>(address)));
}

void CallFrame::Out(const char* label, long value) {
    WriteTrace(session_, label, " => ");
    Line("", value);
}

void CallFrame::Out(const char* label, const char* buffer, long size) {
    WriteTrace(session_, label, " => ");
    WriteTrace(session_, buffer, nullptr, nullptr, size);
    WriteTrace(session_, kLineEnd);
}

void CallFrame::Line(const char* text, const char* value) {
    WriteTrace(session_, text, value);
    WriteTrace(session_, kLineEnd);
}

void CallFrame::Line(const char* text, long number) {
    WriteTrace(session_, text, number);
    WriteTrace(session_, kLineEnd);
}

void CallFrame::Line2(const char* label, const String& text) {
    WriteTrace(session_, label);
    Line(text.c_str());
}

long InFrame(Velmor& session, const char* name, long failure, FrameBody body) {
    CallFrame frame(session, name);
    frame.SetResult(failure);
    const long result = body(frame);
    frame.SetResult(result);
    return result;
}

long Framed(const char* name, long failure, FrameBody body) {
    Velmor& session = *Velmor::getVelmor();
    long result = failure;
    Guarded([&] { result = InFrame(session, name, failure, body); });
    return result;
}

}  // namespace vel
