// SPDX-License-Identifier: MIT
// velmor diff: tells what the change from one catalogue to another means.
#include "diff/diff.h"

#include "check/check.h"
#include "commands/command.h"
#include "diff/print.h"
#include "support/error.h"
#include "support/input_file.h"

namespace tool {
namespace {

// The arguments.
struct Options {
    std::string before;
    std::string after;
    bool json = false;
};

// Refuses what the library refuses or would lose a part of: what is lost would look like gone.
Content Read(const std::string& path) {
    Findings findings;
    const Catalogue catalogue = ReadCatalogue(ReadInput(path), findings);
    CheckSchema(catalogue, findings);
    for (const auto& [id, severity, place, message] : findings) {
        if (severity == Severity::kError) {
            throw ToolError(path, place.line > 0 ? Concat(":", place.line) : "", ": ",
                            place.table.empty() ? "" : place.table + ": ", message, " [", id, "]");
        }
    }
    return Content(catalogue);
}

int Diff(const Options& options) {
    const Content before = Read(options.before);
    const Difference difference = Compare(before, Read(options.after));
    if (options.json) {
        PrintJson(DescribeDifference(difference));
    } else {
        PrintDifference(difference);
    }
    return difference.Empty() ? kExitOk : kExitFindings;
}

}  // namespace

void AddDiff(CommandLine& line) {
    const auto [command, options] = line.Add(
        "diff",
        "Tells what the change from one catalogue to another means for phones and networks.", Diff);
    command.Add("OLD", options->before, "", "catalogue or source before the change").Required();
    command.Add("NEW", options->after, "", "catalogue or source after it").Required();
    command.AddFlag("--json", options->json, "print JSON");
    command.AddFooter(
        "Exit status: 0 when both say the same, 1 when they differ, also in identifiers alone, 2\n"
        "when a file cannot be read or is damaged.\n"
        "Example: velmor diff old.catalogue new.source\n");
}

}  // namespace tool
