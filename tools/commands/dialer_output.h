// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <utility>
#include <vector>

#include "commands/command.h"
#include "commands/dialer_files.h"

namespace tool {

// The form in which a command prints a DUN setting.
struct OutputFormat {
    std::string name = "text";  // or json, ppp, wvdial
    std::string directory;      // for the files of ppp; empty: standard output
    bool force = false;         // replace existing files
    Subcommand command = Subcommand(nullptr);
};

// Adds --format, --json, --output and --force.
void AddFormat(const Subcommand& command, OutputFormat& format);

// Throws a ToolError when an option is given that the format does not use: --output and --force, or
// one of these, each with the formats that use it.
void RefuseIgnored(const OutputFormat& format,
                   const std::vector<std::pair<std::string, std::string>>& options);

// Prints or writes the files for pppd or wvdial.
void WriteDialerFiles(const Velmor_DUNSetting& setting, const DialerLink& link,
                      const OutputFormat& format);

}  // namespace tool
