// SPDX-License-Identifier: MIT
#include "session/trace.h"

#include "runtime/guard.h"
#include "session/session.h"
#include "storage/file.h"

namespace vel {
namespace {

constexpr int kIndent = 3;  // blanks for each call that has not returned yet

void WriteFragment(const String& text, int depth) {
    String line;
    for (int i = 0; i < kIndent * depth; ++i) {
        line.Append(' ');
    }
    line = line + text;
    File log(kTraceLogPath, accessAppend);
    if (log.openFile()) {
        log.writeLine(line);
    }
}

}  // namespace

bool IsTracing() {
    return Velmor::getVelmor()->traceSwitch;
}

}  // namespace vel

using namespace vel;

void Trace(String& text) {
    Guarded([&] {
        if (IsTracing()) {
            WriteFragment(text, Velmor::getVelmor()->traceDepth);
        }
    });
}

void Trace(long number) {
    Guarded([&] {
        if (IsTracing()) {
            String text = String::FromLong(number);
            Trace(text);
        }
    });
}

void Trace(const char* text) {
    Guarded([&] {
        if (IsTracing()) {
            String fragment(text);
            Trace(fragment);
        }
    });
}
