// SPDX-License-Identifier: MIT
// velmor check: reports what is wrong with a catalogue.
#include "check/check.h"

#include <algorithm>
#include <iostream>
#include <map>
#include <nlohmann/json.hpp>
#include <tuple>
#include <utility>

#include "commands/options.h"
#include "support/input_file.h"
#include "support/print.h"
#include "support/utf8.h"

namespace tool {
namespace {

const char* Name(Severity severity) {
    return severity == Severity::kError ? "error" : "warning";
}

// The numbers without the first; successive ones as a range: "395, 401-403".
std::string OtherLines(const std::vector<int>& lines) {
    std::string text;
    for (std::size_t i = 1; i < lines.size(); ++i) {
        const int first = lines[i];
        while (i + 1 < lines.size() && lines[i + 1] == lines[i] + 1) {
            ++i;
        }
        const std::string range = lines[i] > first ? Concat("-", lines[i]) : "";
        text += Concat(text.empty() ? "" : ", ", first, range);
    }
    return text;
}

// Prints a finding that several lines share once: among its repetitions others would not be seen.
void PrintText(const std::string& path, const CheckResult& result, long errors) {
    const Findings& findings = result.findings;
    std::map<std::tuple<std::string, std::string, std::string>, std::vector<int>> lines;
    const auto key = [](const Finding& finding) {
        return std::make_tuple(finding.id, finding.place.table, finding.message);
    };
    for (const Finding& finding : findings) {
        lines[key(finding)].push_back(finding.place.line);
    }
    for (const Finding& finding : findings) {
        const std::vector<int> at = std::exchange(lines[key(finding)], {});
        if (at.empty()) {
            continue;
        }
        const std::string& table = finding.place.table;
        const std::string others = OtherLines(at);
        std::cout << Visible(Concat(path, at[0] > 0 ? Concat(":", at[0]) : "", ": ",
                                    Name(finding.severity), ": ", table.empty() ? "" : table + ": ",
                                    finding.message, " [", finding.id, "]",
                                    others.empty() ? "" : Concat(" (also lines ", others, ")")))
                  << "\n";
    }
    std::cout << Visible(path) << ": " << errors << " error(s), "
              << static_cast<long>(findings.size()) - errors << " warning(s)"
              << (result.allowed.empty() ? "" : Concat(", ", result.allowed.size(), " allowed"))
              << "\n";
}

Json InJson(const Findings& findings) {
    Json list = Json::array();
    for (const Finding& finding : findings) {
        list.push_back({{"id", finding.id},
                        {"severity", Name(finding.severity)},
                        {"table", finding.place.table},
                        {"line", finding.place.line},
                        {"message", finding.message}});
    }
    return list;
}

}  // namespace

int RunCheck(const ReadOptions& options) {
    const CheckResult result = CheckCatalogue(ReadInput(options.catalogue));
    const Findings& findings = result.findings;
    const long errors = std::count_if(findings.begin(), findings.end(), [](const Finding& finding) {
        return finding.severity == Severity::kError;
    });
    if (options.json) {
        PrintJson({{"findings", InJson(findings)},
                   {"errors", errors},
                   {"warnings", static_cast<long>(findings.size()) - errors},
                   {"allowed", InJson(result.allowed)}});
    } else {
        PrintText(options.catalogue, result, errors);
    }
    return errors > 0 ? kExitFindings : kExitOk;
}

}  // namespace tool
