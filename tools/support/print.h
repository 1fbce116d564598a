// SPDX-License-Identifier: MIT
#pragma once

#include <nlohmann/json_fwd.hpp>
#include <string>
#include <vector>

namespace tool {

// JSON whose objects keep the order of their members.
using Json = nlohmann::ordered_json;
// The texts of one row of a printed table.
using TextRow = std::vector<std::string>;

// These functions print on standard output.

// Replaces bytes that are not UTF-8. A terminal gets the visible form.
void PrintJson(const Json& json);

// Prints rows in columns, whole and visible. A column is as wide as its longest
// text. All rows have as many texts as the first.
void PrintAligned(const std::vector<TextRow>& rows);

// Prints the JSON or the rows. On a terminal, long texts of the rows are cut to its width.
void Print(const std::vector<TextRow>& rows, const Json& json, bool asJson);

// Prints objects with these members: as JSON, or as rows under the names of the members. Only the
// members that `columns` names, with commas between them; empty: all.
void PrintList(const Json& list, const std::vector<std::string>& members,
               const std::string& columns, bool json);
// The same with the members of the first object. Without objects there are no names to print.
void PrintList(const Json& list, const std::string& columns, bool json);

}  // namespace tool
