// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

#include "device/exchange.h"

namespace tool {

// The answer to a command, or a part of it, with zeros in place of the digits that identify a
// subscriber or a device; docs/profiles.md lists them. The length stays.
std::string WithoutNumbers(std::string answer, const std::string& command);

// The same for all answers of a dialogue, where a number can go on in the next answer.
std::vector<Exchange> WithoutNumbers(std::vector<Exchange> exchanges);

}  // namespace tool
