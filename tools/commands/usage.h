// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

namespace tool {

// "; did you mean NAME?" with the name that is most like the word; empty without a similar one.
std::string Suggestion(const std::string& word, const std::vector<std::string>& names);

}  // namespace tool
