// SPDX-License-Identifier: MIT
#include "tests/support/patterns.h"

#include <regex>

Names Matches(const std::string& text, const std::string& pattern) {
    const std::regex regex(pattern);
    const std::sregex_token_iterator first(text.begin(), text.end(), regex, 1);
    return {first, std::sregex_token_iterator()};
}

std::string MissingAndNew(const Names& expected, const Names& found) {
    std::string text;
    for (const std::string& name : expected) {
        text += found.count(name) == 0 ? "missing: " + name + "; " : "";
    }
    for (const std::string& name : found) {
        text += expected.count(name) == 0 ? "new: " + name + "; " : "";
    }
    return text;
}

std::string Replaced(const std::string& text, const std::string& pattern, const std::string& with) {
    return std::regex_replace(text, std::regex(pattern), with);
}
