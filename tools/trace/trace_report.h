// SPDX-License-Identifier: MIT
#pragma once

#include "trace/trace_log.h"

namespace tool {

// Both print the calls of a log and the dialogues of its detections, without secrets: no user
// names, passwords, subscriber numbers and serial numbers, as far as the log shows them as such.
void PrintTrace(const TraceLog& log);
void PrintTraceJson(const TraceLog& log);

}  // namespace tool
