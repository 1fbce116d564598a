// SPDX-License-Identifier: MIT
#pragma once

#include <stdexcept>

namespace tool {

// What ends a command with one line on standard error and exit status 2.
class ToolError : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

}  // namespace tool
