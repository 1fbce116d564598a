// SPDX-License-Identifier: MIT
#pragma once

#include <sys/stat.h>

#include <string>

namespace tool {

// Returns the bytes of a file, at most the first `most`. Throws a ToolError when it cannot be read.
std::string ReadInput(const std::string& path, std::size_t most = std::string::npos);

// The same of a regular file, and its state; both come from one open file, so nobody can exchange
// it in between. Throws a ToolError when it is no regular file.
std::string ReadRegular(const std::string& path, std::size_t most, struct stat& state);

// Removes every carriage return, as the library does when it reads a line.
std::string WithoutCarriageReturns(std::string line);

}  // namespace tool
