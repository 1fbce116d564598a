// SPDX-License-Identifier: MIT
// velmor check: reports what is wrong with a catalogue.
#include "check/check.h"

#include <algorithm>
#include <iostream>

#include "commands/command.h"
#include "support/input_file.h"
#include "support/print.h"
#include "support/utf8.h"

namespace tool {
namespace {

const char* Name(Severity severity) {
    return severity == Severity::kError ? "error" : "warning";
}

void PrintText(const std::string& path, const Findings& findings, long errors) {
    for (const Finding& finding : findings) {
        const auto& [table, line] = finding.place;
        std::cout << Visible(Concat(path, line > 0 ? Concat(":", line) : "", ": ",
                                    Name(finding.severity), ": ", table.empty() ? "" : table + ": ",
                                    finding.message, " [", finding.id, "]"))
                  << "\n";
    }
    std::cout << Visible(path) << ": " << errors << " error(s), "
              << static_cast<long>(findings.size()) - errors << " warning(s)\n";
}

void PrintFindingsJson(const Findings& findings, long errors) {
    Json list = Json::array();
    for (const Finding& finding : findings) {
        list.push_back({{"id", finding.id},
                        {"severity", Name(finding.severity)},
                        {"table", finding.place.table},
                        {"line", finding.place.line},
                        {"message", finding.message}});
    }
    PrintJson({{"findings", list},
               {"errors", errors},
               {"warnings", static_cast<long>(findings.size()) - errors}});
}

int Check(const ReadOptions& options) {
    const Findings findings = CheckCatalogue(ReadInput(options.catalogue));
    const long errors = std::count_if(findings.begin(), findings.end(), [](const Finding& finding) {
        return finding.severity == Severity::kError;
    });
    if (options.json) {
        PrintFindingsJson(findings, errors);
    } else {
        PrintText(options.catalogue, findings, errors);
    }
    return errors > 0 ? kExitFindings : kExitOk;
}

}  // namespace

void AddCheck(CommandLine& line) {
    const auto [command, options] = line.Add(
        "check", "Reports what is wrong with a catalogue, in its source or stored form.", Check);
    AddRead(command, *options);
    command.AddFooter(
        "Exit status: 0 without errors (warnings do not count), 1 with errors, 2 when the file"
        " cannot be read.\nExample: velmor check my.source\n");
}

}  // namespace tool
