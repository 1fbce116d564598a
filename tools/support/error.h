// SPDX-License-Identifier: MIT
#pragma once

#include <stdexcept>

#include "support/texts.h"

namespace tool {

// An error that ends the command, with one line on standard error and exit status 2. Its text comes
// in parts, as for Concat.
class ToolError : public std::runtime_error {
  public:
    template <class... Parts>
    explicit ToolError(const Parts&... parts) : std::runtime_error(Concat(parts...)) {}
};

}  // namespace tool
