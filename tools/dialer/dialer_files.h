// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include "velmor.h"

namespace tool {

// Files with which other programs dial, made from a DUN setting. Each value is data there, whatever
// it contains. A value that a file format cannot hold throws a ToolError that names the field.

// The serial device to dial with.
struct DialerLink {
    std::string device;  // empty: the program chooses it
    unsigned baud = 115200;
};

// The form in which a command prints a DUN setting.
struct OutputFormat {
    std::string name = "text";  // or json, or that of a dialler
    std::string directory;      // for the files of a dialler; empty: standard output
    bool force = false;         // replace existing files
};

// A script for chat(8), from the initialisation string to CONNECT.
std::string ChatScript(const Velmor_DUNSetting& setting);

// Prints or writes the files for a dialler. None replaces the catalogue.
void WriteDialerFiles(const Velmor_DUNSetting& setting, const DialerLink& link,
                      const OutputFormat& format, const std::string& catalogue);

}  // namespace tool
