// SPDX-License-Identifier: MIT
#include <algorithm>
#include <csignal>
#include <cstdio>
#include <iostream>
#include <new>

#include "commands/options.h"
#include "session/trace.h"
#include "support/error.h"
#include "support/interruption.h"
#include "support/utf8.h"
#include "velmor.h"

const char* const vel::kTraceLogPath = VELMOR_TRACE_LOG;

int main(int argc, char** argv) {
    // A write beyond the limit of a file's size then fails like any other write.
    std::signal(SIGXFSZ, SIG_IGN);
    try {
        const std::string version =
            tool::Concat(VELMOR_TOOL_VERSION " (interface ", Velmor_GetVersionLibrary(), ")");
        const int status = tool::RunCommandLine(version, {argv + std::min(argc, 1), argv + argc});
        if (!std::cout.flush()) {
            throw tool::ToolError("standard output: cannot be written");
        }
        return status;
    } catch (const std::bad_alloc&) {
        std::fputs(
            "velmor: not enough memory for this input; free some, or raise the limit (ulimit -v)\n",
            stderr);
        return tool::kExitTrouble;
    } catch (const std::exception& error) {
        std::fprintf(stderr, "velmor: %s\n", tool::Visible(error.what()).c_str());
        // As shells report a signal.
        const int signal = tool::Interruption::Signal();
        return signal == 0 ? static_cast<int>(tool::kExitTrouble) : 128 + signal;
    }
}
