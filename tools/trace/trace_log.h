// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "device/exchange.h"

namespace tool {

// A call in a trace log, with all that it wrote.
struct TraceCall {
    // A part of a call. All parts have a text.
    struct Part {
        enum class Kind {
            kArgument,  // with its name as label
            kOutput,    // the same
            kLine,      // another line
            kAnswer,    // the bytes of the phone
            kCall,      // a call inside; the text is empty
        };
        Kind kind;
        std::string label;
        std::string text;
    };

    std::string name;
    std::vector<Part> parts;       // in the order of the log
    std::vector<TraceCall> calls;  // the calls inside
    std::optional<long> result;
    std::vector<std::string> after;  // the lines between this call and the next one
    bool ended = false;              // false: the log was cut, or the host stopped

    bool IsDetection() const { return name == "Velmor_DetectPhoneAndNetwork"; }
    // Whether this call and all inside have ended.
    bool IsWhole() const;
    // The text of the first such part; empty without one.
    std::string TextOf(Part::Kind kind, const std::string& label = "") const;
};

// What was read of a log.
struct TraceLog {
    std::vector<TraceCall> calls;
    std::size_t strayBytes = 0;  // that belong to no call and are no lines of a log
};

// Reads the bytes of a log; docs/trace-log.md describes it. Throws a ToolError that names the log
// when it holds no call.
TraceLog ReadTraceLog(const std::string& bytes, const std::string& path);

// The commands of a detection and their answers. A command whose call did not end is left out.
std::vector<Exchange> DialogueOf(const TraceCall& detection);

}  // namespace tool
