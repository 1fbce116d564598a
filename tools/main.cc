// SPDX-License-Identifier: MIT
#include <iostream>

#include "api/trace.h"
#include "api/velmor.h"
#include "command.h"

const char* const kTraceLogPath = VELMOR_TRACE_LOG;

int main(int argc, char** argv) {
    int status = kExitOk;
    CLI::App app("Makes, checks and reads Velmor catalogues.", "velmor");
    app.set_version_flag("--version", VELMOR_TOOL_VERSION " (interface " +
                                          std::to_string(Velmor_GetVersionLibrary()) + ")");
    app.require_subcommand(1);
    AddImport(app, status);
    try {
        app.parse(argc, argv);
    } catch (const CLI::ParseError& error) {
        return app.exit(error) == 0 ? kExitOk : kExitTrouble;
    } catch (const std::exception& error) {
        std::cerr << "velmor: " << error.what() << "\n";
        return kExitTrouble;
    }
    return status;
}
