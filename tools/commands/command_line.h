// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

namespace tool {

// Runs the subcommand that the words choose. Prints help, what --version asks, and what is wrong
// with the words. Returns the exit status.
int RunCommandLine(const std::string& version, std::vector<std::string> words);

}  // namespace tool
