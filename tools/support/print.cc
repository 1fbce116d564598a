// SPDX-License-Identifier: MIT
#include "support/print.h"

#include <algorithm>
#include <iostream>

namespace tool {
namespace {

// The characters of a text in UTF-8: its bytes without those that continue a character.
std::size_t Width(const std::string& text) {
    return static_cast<std::size_t>(std::count_if(text.begin(), text.end(), [](char c) {
        return (static_cast<unsigned char>(c) & 0xC0) != 0x80;
    }));
}

}  // namespace

void PrintJson(const Json& json) {
    std::cout << json.dump(2, ' ', false, Json::error_handler_t::replace) << "\n";
}

void PrintAligned(const std::vector<TextRow>& rows) {
    std::vector<std::size_t> widths(rows.empty() ? 0 : rows[0].size());
    for (const TextRow& row : rows) {
        for (std::size_t i = 0; i < row.size(); ++i) {
            widths[i] = std::max(widths[i], Width(row[i]));
        }
    }
    for (const TextRow& row : rows) {
        std::string line;
        std::size_t gap = 0;  // blanks before the next text, so that no line ends in blanks
        for (std::size_t i = 0; i < row.size(); ++i) {
            line += row[i].empty() ? "" : std::string(gap, ' ') + row[i];
            gap = row[i].empty() ? gap + widths[i] + 2 : widths[i] - Width(row[i]) + 2;
        }
        std::cout << line << "\n";
    }
}

void Print(const std::vector<TextRow>& rows, const Json& json, bool asJson) {
    if (asJson) {
        PrintJson(json);
    } else {
        PrintAligned(rows);
    }
}

void PrintList(const Json& list, bool json) {
    std::vector<TextRow> lines;
    for (const Json& object : list) {
        if (lines.empty()) {
            lines.emplace_back();
            for (const auto& member : object.items()) {
                lines[0].push_back(member.key());
            }
        }
        lines.emplace_back();
        for (const Json& value : object) {
            lines.back().push_back(value.is_string() ? value.get<std::string>() : value.dump());
        }
    }
    Print(lines, list, json);
}

}  // namespace tool
