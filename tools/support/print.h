// SPDX-License-Identifier: MIT
#pragma once

#include <nlohmann/json.hpp>
#include <string>
#include <vector>

namespace tool {

// What the commands print on standard output. Objects keep the order of their members.
using Json = nlohmann::ordered_json;
using TextRow = std::vector<std::string>;

// Bytes that are no UTF-8 are replaced.
void PrintJson(const Json& json);

// The rows below one another, each column as wide as its longest text in UTF-8. All rows have as
// many texts as the first.
void PrintAligned(const std::vector<TextRow>& rows);

// The one or the other.
void Print(const std::vector<TextRow>& rows, const Json& json, bool asJson);

// Objects that all have the same members: as JSON, or as rows under the members' names.
void PrintList(const Json& list, bool json);

}  // namespace tool
