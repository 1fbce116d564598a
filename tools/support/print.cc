// SPDX-License-Identifier: MIT
#include "support/print.h"

#include <sys/ioctl.h>
#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <iostream>
#include <nlohmann/json.hpp>
#include <numeric>

#include "support/error.h"
#include "support/utf8.h"

namespace tool {
namespace {

constexpr std::size_t kGap = 2;     // blanks between two columns
constexpr std::size_t kNarrow = 4;  // a column is not cut below this width

// The widest columns become narrower until the line fits; the others stay whole.
void Fit(std::vector<std::size_t>& widths, std::size_t limit) {
    const auto total = [&widths] {
        return std::accumulate(widths.begin(), widths.end(), (widths.size() - 1) * kGap);
    };
    while (!widths.empty() && total() > limit) {
        const auto widest = std::max_element(widths.begin(), widths.end());
        if (*widest <= kNarrow) {
            break;
        }
        --*widest;
    }
}

// Prints rows in columns, in so many columns of the terminal; 0: whole.
void PrintRows(std::vector<TextRow> rows, std::size_t limit) {
    std::vector<std::size_t> widths(rows.empty() ? 0 : rows[0].size());
    for (TextRow& row : rows) {
        for (std::size_t i = 0; i < row.size(); ++i) {
            row[i] = Visible(row[i]);
            widths[i] = std::max(widths[i], DisplayWidth(row[i]));
        }
    }
    if (limit > 0) {
        Fit(widths, limit);
    }
    for (const TextRow& row : rows) {
        std::string line;
        std::size_t gap = 0;  // blanks before the next text, so that no line ends in blanks
        for (std::size_t i = 0; i < row.size(); ++i) {
            const std::string text = CutTo(row[i], widths[i]);
            line += text.empty() ? "" : std::string(gap, ' ') + text;
            gap = text.empty() ? gap + widths[i] + kGap : widths[i] - DisplayWidth(text) + kGap;
        }
        std::cout << (limit > 0 ? CutTo(line, limit) : line) << "\n";
    }
}

// The columns of the terminal on standard output; 0 when it is none, or its width is not known.
std::size_t TerminalWidth() {
    if (isatty(STDOUT_FILENO) != 1) {
        return 0;
    }
    struct winsize size = {};
    if (ioctl(STDOUT_FILENO, TIOCGWINSZ, &size) == 0 && size.ws_col > 0) {
        return size.ws_col;
    }
    const char* const columns = std::getenv("COLUMNS");
    return columns == nullptr ? 0 : std::strtoul(columns, nullptr, 10);
}

}  // namespace

void PrintJson(const Json& json) {
    const std::string text = json.dump(2, ' ', false, Json::error_handler_t::replace);
    std::cout << (isatty(STDOUT_FILENO) == 1 ? VisibleJson(text) : text) << "\n";
}

void PrintAligned(const std::vector<TextRow>& rows) {
    PrintRows(rows, 0);
}

void Print(const std::vector<TextRow>& rows, const Json& json, bool asJson) {
    if (asJson) {
        PrintJson(json);
    } else {
        PrintRows(rows, TerminalWidth());
    }
}

void PrintList(const Json& list, const std::vector<std::string>& members,
               const std::string& columns, bool json) {
    const TextRow names = columns.empty() ? members : Split(columns, ',');
    for (const std::string& name : names) {
        if (std::find(members.begin(), members.end(), name) == members.end()) {
            throw ToolError("--columns ", name, ": is no column; there are ", Join(members, ", "));
        }
    }
    std::vector<TextRow> lines{names};
    Json objects = Json::array();
    for (const Json& object : list) {
        TextRow line;
        Json shown = Json::object();
        for (const std::string& name : names) {
            const Json& value = object.at(name);
            shown[name] = value;
            line.push_back(value.is_string() ? value.get<std::string>() : value.dump());
        }
        lines.push_back(line);
        objects.push_back(shown);
    }
    Print(lines, objects, json);
}

void PrintList(const Json& list, const std::string& columns, bool json) {
    std::vector<std::string> members;
    if (list.empty()) {
        Print({}, list, json);
        return;
    }
    for (const auto& member : list[0].items()) {
        members.push_back(member.key());
    }
    PrintList(list, members, columns, json);
}

}  // namespace tool
