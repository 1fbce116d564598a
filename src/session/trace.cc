// SPDX-License-Identifier: MIT
#include "session/trace.h"

#include <cstring>

#include "runtime/guard.h"
#include "storage/file.h"

namespace vel {
namespace {

constexpr int kIndent = 3;  // blanks for each call that has not returned yet

void WriteFragment(const TraceFragment& fragment, int depth) {
    String line;
    for (int i = 0; i < kIndent * depth; ++i) {
        line.Append(' ');
    }
    if (fragment.first != nullptr && fragment.size > 0) {
        const std::size_t length = strnlen(fragment.first, static_cast<std::size_t>(fragment.size));
        line.Append(fragment.first, static_cast<int>(length));
    }
    line.Append(fragment.second);
    line.Append(fragment.third);
    if (fragment.number != nullptr) {
        line.Append(String::FromLong(*fragment.number).c_str());
    }
    File log(kTraceLogPath, accessAppend);
    if (log.openFile()) {
        log.writeLine(line);
    }
}

}  // namespace

void WriteTrace(const Velmor& session, std::initializer_list<TraceFragment> fragments) {
    if (!session.traceSwitch) {
        return;
    }
    for (const TraceFragment& fragment : fragments) {
        Guarded([&] { WriteFragment(fragment, session.traceDepth); });
    }
}

}  // namespace vel
