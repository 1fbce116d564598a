// SPDX-License-Identifier: MIT
#include <csignal>
#include <cstdio>
#include <iostream>

#include "commands/command.h"
#include "session/trace.h"
#include "support/error.h"
#include "velmor.h"

const char* const kTraceLogPath = VELMOR_TRACE_LOG;

namespace {

int Run(int argc, char** argv) {
    int status = kExitOk;
    CLI::App app("Makes, checks and reads Velmor catalogues.", "velmor");
    app.set_version_flag("--version", VELMOR_TOOL_VERSION " (interface " +
                                          std::to_string(Velmor_GetVersionLibrary()) + ")");
    app.failure_message([](const CLI::App*, const CLI::Error& error) {
        return std::string("velmor: ") + error.what() + " (--help says more)\n";
    });
    app.require_subcommand(1);
    AddCheck(app, status);
    AddCountries(app);
    AddDecode(app);
    AddDetect(app, status);
    AddEncode(app);
    AddImport(app, status);
    AddPhone(app);
    AddPhones(app);
    AddSetting(app, status);
    AddSettings(app, status);
    AddShow(app, status);
    try {
        app.parse(argc, argv);
    } catch (const CLI::ParseError& error) {
        return app.exit(error) == 0 ? kExitOk : kExitTrouble;
    }
    return status;
}

}  // namespace

int main(int argc, char** argv) {
    // A file beyond the limit of its size is a failed write like any other.
    std::signal(SIGXFSZ, SIG_IGN);
    try {
        const int status = Run(argc, argv);
        if (!std::cout.flush()) {
            throw ToolError("standard output: cannot be written");
        }
        return status;
    } catch (const std::exception& error) {
        std::fprintf(stderr, "velmor: %s\n", error.what());
        return kExitTrouble;
    }
}
