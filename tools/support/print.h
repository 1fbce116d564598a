// SPDX-License-Identifier: MIT
#pragma once

#include <nlohmann/json.hpp>
#include <string>
#include <vector>

namespace tool {

// JSON whose objects keep the order of their members.
using Json = nlohmann::ordered_json;
// The texts of one row of a printed table.
using TextRow = std::vector<std::string>;

// These functions print on standard output.

// Replaces bytes that are not UTF-8.
void PrintJson(const Json& json);

// Prints rows in columns. A column is as wide as its longest text, counted in characters of UTF-8.
// All rows have as many texts as the first.
void PrintAligned(const std::vector<TextRow>& rows);

// Prints the JSON or the rows.
void Print(const std::vector<TextRow>& rows, const Json& json, bool asJson);

// Prints objects with the same members: as JSON, or as rows under the names of the members.
void PrintList(const Json& list, bool json);

}  // namespace tool
