// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include "dialer/pppd_options.h"

namespace tool {

// Files with which other programs dial, made from a DUN setting. Each value is data there, whatever
// it contains. A value that a file format cannot hold throws a ToolError that names the field.

// The form in which a command prints a DUN setting.
struct OutputFormat {
    std::string name = "text";  // or json, or that of a dialler
    std::string directory;      // for the files of a dialler; empty: standard output
    bool force = false;         // replace existing files
    std::string pinFile;        // for velmor dial; empty: none
    std::string pin;            // for NetworkManager; empty: none
};

// Prints or writes the files for a dialler. None replaces the catalogue. `authentication`: as in
// the column Authentication.
void WriteDialerFiles(const Velmor_DUNSetting& setting, const std::string& authentication,
                      const DialerLink& link, const OutputFormat& format,
                      const std::string& catalogue);

}  // namespace tool
