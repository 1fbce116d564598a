// SPDX-License-Identifier: MIT
#include <csignal>
#include <cstdio>
#include <iostream>

#include "commands/command.h"
#include "session/trace.h"
#include "support/error.h"
#include "velmor.h"

const char* const vel::kTraceLogPath = VELMOR_TRACE_LOG;

namespace tool {
namespace {

constexpr void (*kSubcommands[])(CommandLine&) = {
    AddCheck, AddCountries, AddDecode,  AddDetect,   AddEncode, AddImport,
    AddPhone, AddPhones,    AddSetting, AddSettings, AddShow,
};

int Run(int argc, char** argv) {
    CommandLine line;
    line.app.name("velmor");
    line.app.description("Makes, checks and reads Velmor catalogues.");
    line.app.set_version_flag("--version", VELMOR_TOOL_VERSION " (interface " +
                                               std::to_string(Velmor_GetVersionLibrary()) + ")");
    line.app.failure_message([](const CLI::App*, const CLI::Error& error) {
        return std::string("velmor: ") + error.what() + " (see --help)\n";
    });
    line.app.require_subcommand(1);
    for (const auto add : kSubcommands) {
        add(line);
    }
    try {
        line.app.parse(argc, argv);
    } catch (const CLI::ParseError& error) {
        return line.app.exit(error) == 0 ? kExitOk : kExitTrouble;
    }
    return line.status;
}

}  // namespace
}  // namespace tool

int main(int argc, char** argv) {
    // A write beyond the limit of a file's size then fails like any other write.
    std::signal(SIGXFSZ, SIG_IGN);
    try {
        const int status = tool::Run(argc, argv);
        if (!std::cout.flush()) {
            throw tool::ToolError("standard output: cannot be written");
        }
        return status;
    } catch (const std::exception& error) {
        std::fprintf(stderr, "velmor: %s\n", error.what());
        return tool::kExitTrouble;
    }
}
