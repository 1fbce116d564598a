// SPDX-License-Identifier: MIT
#pragma once

#include <vector>

#include "support/texts.h"

namespace tool {

// An error makes the library lose, confuse or cut something. A warning may be intended.
enum class Severity { kWarning, kError };

// The place of a finding: a line of the file (0: the whole file), and the table of this line.
struct Place {
    std::string table;
    int line = 0;
};

// A fault of a catalogue. docs/velmor.1 describes the identifiers, which never change.
struct Finding {
    std::string id;
    Severity severity;
    Place place;
    std::string message;  // "what is wrong; what the library does: what to do"
};

using Findings = std::vector<Finding>;

// These add a finding. Its message comes in parts, as for Concat.
template <class... Parts>
void AddFinding(Findings& findings, const char* id, Severity severity, const Place& place,
                const Parts&... message) {
    findings.push_back({id, severity, place, Concat(message...)});
}

template <class... Parts>
void AddError(Findings& findings, const char* id, const Place& place, const Parts&... message) {
    AddFinding(findings, id, Severity::kError, place, message...);
}

template <class... Parts>
void AddWarning(Findings& findings, const char* id, const Place& place, const Parts&... message) {
    AddFinding(findings, id, Severity::kWarning, place, message...);
}

inline std::string InQuotes(const std::string& text) {
    return "\"" + text + "\"";
}

}  // namespace tool
