// SPDX-License-Identifier: MIT
#include "api/trace.h"

const char* const kTraceLogPath = VELMOR_TRACE_LOG;
