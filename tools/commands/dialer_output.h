// SPDX-License-Identifier: MIT
#pragma once

#include "commands/options.h"

namespace tool {

// Prints or writes the files for a dialler. None replaces the catalogue.
void WriteDialerFiles(const Velmor_DUNSetting& setting, const DialerLink& link,
                      const OutputFormat& format, const std::string& catalogue);

}  // namespace tool
