// SPDX-License-Identifier: MIT
// Regular expressions of ECMAScript. The tests do not include <regex>: it takes long to compile.
#pragma once

#include <set>
#include <string>

using Names = std::set<std::string>;

// What the group of a pattern matches in a text, each text once.
Names Matches(const std::string& text, const std::string& pattern);

// What two sets do not share, as "missing: a; new: b;"; empty when they are equal.
std::string MissingAndNew(const Names& expected, const Names& found);

// The text with another one for each match; "$1" in it stands for what the first group matches.
std::string Replaced(const std::string& text, const std::string& pattern, const std::string& with);
