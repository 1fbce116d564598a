// SPDX-License-Identifier: MIT
// velmor diff: tells what the change from one catalogue to another means.
#include "diff/diff.h"

#include <nlohmann/json.hpp>

#include "check/check.h"
#include "commands/options.h"
#include "support/error.h"
#include "support/input_file.h"

namespace tool {
namespace {

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

}  // namespace

int RunDiff(const DiffOptions& options) {
    const Content before = Read(options.before);
    const Difference difference = Compare(before, Read(options.after));
    if (options.json) {
        PrintJson(DescribeDifference(difference));
    } else {
        PrintDifference(difference);
    }
    return difference.Empty() ? kExitOk : kExitFindings;
}

}  // namespace tool
