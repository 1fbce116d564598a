// SPDX-License-Identifier: MIT
// What a user wrote wrong, and what was probably meant.
#pragma once

#include <string>
#include <vector>

namespace CLI {
class App;
class Error;
}  // namespace CLI

namespace tool {

// "; did you mean NAME?" with the name that is most like the word; empty without a similar one.
std::string Suggestion(const std::string& word, const std::vector<std::string>& names);

// One line that says what is wrong with the command line, and what to do.
std::string ExplainUsage(const CLI::App& app, const CLI::Error& error,
                         const std::vector<std::string>& words);

}  // namespace tool
