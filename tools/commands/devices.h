// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace tool {

// Returns the device that answers, among those that the pattern names, and says so; empty when none
// does.
std::string FindDevice(const std::string& pattern, unsigned baud);

}  // namespace tool
