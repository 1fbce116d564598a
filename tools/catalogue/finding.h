// SPDX-License-Identifier: MIT
#pragma once

#include <vector>

#include "support/texts.h"

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

// The message comes in parts, which follow one another.
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
