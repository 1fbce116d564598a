// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

namespace tool {

// The bytes of a file; a ToolError that names it when it cannot be read.
std::string ReadInput(const std::string& path);

// The bytes between the line feeds, as the library takes a file apart: after a last line feed there
// is one more, empty, line. Carriage returns are kept.
std::vector<std::string> SplitLines(const std::string& bytes);

// The line as the library reads it: without any carriage return.
std::string WithoutCarriageReturns(std::string line);

}  // namespace tool
