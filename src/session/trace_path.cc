// SPDX-License-Identifier: MIT
#include "session/trace.h"

const char* const vel::kTraceLogPath = VELMOR_TRACE_LOG;
