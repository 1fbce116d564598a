// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <utility>
#include <vector>

#include "commands/command.h"
#include "dialer/dialer_files.h"

namespace tool {

// The formats for diallers.
constexpr char kDialers[] = "ppp, wvdial or networkmanager";

// The form in which a command prints a DUN setting.
struct OutputFormat {
    std::string name = "text";  // or json, or that of a dialler
    std::string directory;      // for the files of a dialler; empty: standard output
    bool force = false;         // replace existing files
    Subcommand command = Subcommand(nullptr);
};

// Adds --format, --json, --output and --force.
void AddFormat(const Subcommand& command, OutputFormat& format);

// Throws a ToolError when an option is given that the format does not use: --output and --force, or
// one of these, each with the formats that use it.
void RefuseIgnored(const OutputFormat& format,
                   const std::vector<std::pair<std::string, std::string>>& options);

// Prints or writes the files for a dialler.
void WriteDialerFiles(const Velmor_DUNSetting& setting, const DialerLink& link,
                      const OutputFormat& format);

}  // namespace tool
