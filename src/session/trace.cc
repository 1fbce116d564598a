// SPDX-License-Identifier: MIT
#include "session/trace.h"

#include <cstring>

#include "runtime/guard.h"
#include "storage/file.h"

namespace vel {
namespace {

constexpr int kIndent = 3;  // blanks for each call that has not returned yet

}  // namespace

void AppendTrace(const Velmor& session, const char* first, const char* second, const char* third,
                 long size, const long* number) {
    Guarded([&] {
        String line;
        for (int i = 0; i < kIndent * session.traceDepth; ++i) {
            line.Append(' ');
        }
        if (first != nullptr && size > 0) {
            line.Append(first, static_cast<int>(strnlen(first, static_cast<std::size_t>(size))));
        }
        line.Append(second);
        line.Append(third);
        if (number != nullptr) {
            line.Append(String::FromLong(*number).c_str());
        }
        File log(kTraceLogPath, accessAppend);
        if (log.openFile()) {
            log.writeLine(line);
        }
    });
}

}  // namespace vel
