// SPDX-License-Identifier: MIT
#pragma once

#include <stdexcept>

#include "support/texts.h"

namespace tool {

// What ends a command with one line on standard error and exit status 2.
class ToolError : public std::runtime_error {
  public:
    template <class... Parts>
    explicit ToolError(const Parts&... parts) : std::runtime_error(Concat(parts...)) {}
};

}  // namespace tool
