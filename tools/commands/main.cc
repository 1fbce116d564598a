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

namespace {

// Overwrites the values of --user and --password, which a process list would show.
void HideSecrets(char** arguments) {
    bool secret = false;
    for (; *arguments != nullptr; ++arguments) {
        const std::string word = *arguments;
        const bool named = word == "--user" || word == "--password";
        const bool joined =
            tool::BeginsWith(word, "--user=") || tool::BeginsWith(word, "--password=");
        if (secret || joined) {
            const std::size_t start = joined ? word.find('=') + 1 : 0;
            std::fill(*arguments + start, *arguments + word.size(), 'x');
        }
        secret = named;
    }
}

}  // namespace

int main(int argc, char** argv) {
    // A write beyond the limit of a file's size then fails like any other write.
    std::signal(SIGXFSZ, SIG_IGN);
    try {
        const std::string version =
            tool::Concat(VELMOR_TOOL_VERSION " (interface ", Velmor_GetVersionLibrary(), ")");
        const std::vector<std::string> words(argv + std::min(argc, 1), argv + argc);
        HideSecrets(argv);
        const int status = tool::RunCommandLine(version, words);
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
