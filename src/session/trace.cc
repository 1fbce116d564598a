// SPDX-License-Identifier: MIT
#include "session/trace.h"

#include "session/guard.h"
#include "session/session.h"
#include "storage/file.h"

namespace {

constexpr int kIndent = 3;  // blanks for each level

void WriteFragment(const vel::String& text, int depth) {
    vel::String line;
    for (int i = 0; i < kIndent * depth; ++i) {
        line.Append(' ');
    }
    line = line + text;
    vel::File log(kTraceLogPath, vel::accessAppend);
    if (log.openFile()) {
        log.writeLine(line);
    }
}

}  // namespace

bool IsTracing() {
    return Velmor::getVelmor()->traceSwitch;
}

void Trace(vel::String& text) {
    Guarded([&] {
        if (IsTracing()) {
            WriteFragment(text, Velmor::getVelmor()->traceDepth);
        }
    });
}

void Trace(long number) {
    Guarded([&] {
        if (IsTracing()) {
            vel::String text = vel::String::FromLong(number);
            Trace(text);
        }
    });
}

void Trace(const char* text) {
    Guarded([&] {
        if (IsTracing()) {
            vel::String fragment(text);
            Trace(fragment);
        }
    });
}
