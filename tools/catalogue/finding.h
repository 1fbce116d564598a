// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

namespace tool {

enum class Severity { kWarning, kError };

// Where a finding is: a line of the file, 0 for the file as a whole, and the table it belongs to.
struct Place {
    std::string table;
    int line = 0;
};

// A fault of a catalogue. The identifiers are documented in docs/velmor.1 and never change.
struct Finding {
    std::string id;
    Severity severity;
    Place place;
    std::string message;  // what the library does about it, and how to mend it
};

using Findings = std::vector<Finding>;

inline void AddFinding(Findings& findings, const char* id, Severity severity, const Place& place,
                       std::string message) {
    findings.push_back({id, severity, place, std::move(message)});
}

inline void AddError(Findings& findings, const char* id, const Place& place, std::string message) {
    AddFinding(findings, id, Severity::kError, place, std::move(message));
}

inline void AddWarning(Findings& findings, const char* id, const Place& place,
                       std::string message) {
    AddFinding(findings, id, Severity::kWarning, place, std::move(message));
}

inline std::string InQuotes(const std::string& text) {
    return "\"" + text + "\"";
}

}  // namespace tool
