// SPDX-License-Identifier: MIT
#include "session/trace.h"

const char* const kTraceLogPath = VELMOR_TRACE_LOG;
