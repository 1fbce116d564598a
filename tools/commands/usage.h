// SPDX-License-Identifier: MIT
#pragma once

#include <CLI/CLI.hpp>
#include <string>

namespace tool {

// The number in the plain form that CLI11 reads as decimal; it takes 010 for 8. Throws a
// CLI::ValidationError when the text is no decimal number, or one too large for 32 bits.
std::string PlainNumber(const std::string& text, bool fraction);

// One line that says what is wrong with the command line, and what to do.
std::string ExplainUsage(const CLI::App& app, const CLI::Error& error,
                         const std::vector<std::string>& words);

}  // namespace tool
