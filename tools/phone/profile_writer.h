// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

#include "device/exchange.h"

namespace tool {

// The text of a profile that gives these answers again byte for byte, but without numbers
// (redaction.h). Without any exchange the phone answers nothing. A phone that is gone disconnects
// after the last answer. `origin` says where the answers come from. Throws a std::runtime_error for
// a command that no profile can hold.
std::string WriteProfile(const std::vector<Exchange>& recorded, const std::string& origin,
                         bool gone = false);

// The bytes as a text of one line, with the escapes of a profile.
std::string Escaped(const std::string& bytes);

}  // namespace tool
