// SPDX-License-Identifier: MIT
// velmor trace: shows a trace log, and makes a profile of a detection in it.
#include <algorithm>
#include <iostream>

#include "commands/options.h"
#include "phone/profile_writer.h"
#include "support/error.h"
#include "support/input_file.h"
#include "support/output_file.h"
#include "support/utf8.h"
#include "trace/trace_report.h"

namespace tool {
namespace {

// What is read of a log, in millions of bytes. A detection takes about one hundredth of a million.
constexpr std::size_t kMostMegabytes = 16;

const TraceCall& ChosenDetection(const TraceLog& log, const TraceOptions& options) {
    std::vector<const TraceCall*> detections;
    for (const TraceCall& call : log.calls) {
        if (call.IsDetection()) {
            detections.push_back(&call);
        }
    }
    const std::size_t number = options.detection == 0 ? detections.size() : options.detection;
    if (number == 0 || number > detections.size()) {
        throw ToolError(options.log, ": holds ", detections.size(), " detection(s)",
                        number == 0 ? "" : Concat(", and none with the number ", number));
    }
    return *detections[number - 1];
}

// Tells what could not be read. Returns whether all could.
bool Warn(const TraceLog& log, const TraceOptions& options) {
    const auto unfinished = std::count_if(log.calls.begin(), log.calls.end(),
                                          [](const TraceCall& call) { return !call.IsWhole(); });
    if (unfinished > 0) {
        std::cerr << "velmor: " << Visible(options.log) << ": " << unfinished
                  << " call(s) did not end; the log was cut or the host stopped\n";
    }
    if (log.strayBytes > 0) {
        std::cerr << "velmor: " << Visible(options.log) << ": " << log.strayBytes
                  << " bytes belong to no call; the log was cut or holds something else\n";
    }
    return unfinished == 0 && log.strayBytes == 0;
}

std::string ProfileOf(const TraceCall& detection, const TraceOptions& options) try {
    const std::vector<Exchange> exchanges = DialogueOf(detection);
    if (exchanges.empty()) {
        throw std::runtime_error("the detection has no answers; --detection chooses another one");
    }
    return WriteProfile(exchanges, "velmor trace");
} catch (const std::runtime_error& error) {
    throw ToolError(options.log, ": ", error.what());
}

}  // namespace

int RunTrace(const TraceOptions& options) {
    RequireOther(options.profile, {options.log});
    constexpr std::size_t kMost = kMostMegabytes * 1000000;
    std::string bytes = ReadInput(options.log, kMost + 1);
    const bool tooLong = bytes.size() > kMost;
    bytes.resize(std::min(bytes.size(), kMost));
    const TraceLog log = ReadTraceLog(bytes, options.log);
    if (!options.profile.empty()) {
        OutputFile output(options.profile, options.force);
        output.Write(ProfileOf(ChosenDetection(log, options), options));
    }
    if (options.json) {
        PrintTraceJson(log);
    } else {
        PrintTrace(log);
    }
    if (tooLong) {
        std::cerr << "velmor: " << Visible(options.log) << ": only the first " << kMostMegabytes
                  << " MB were read; tail -c " << kMost << " gives the last ones\n";
    }
    return Warn(log, options) && !tooLong ? kExitOk : kExitFindings;
}

}  // namespace tool
