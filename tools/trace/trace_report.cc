// SPDX-License-Identifier: MIT
#include "trace/trace_report.h"

#include <iostream>
#include <nlohmann/json.hpp>

#include "phone/profile_writer.h"
#include "phone/redaction.h"
#include "support/print.h"
#include "support/texts.h"

namespace tool {
namespace {

using Kind = TraceCall::Part::Kind;

constexpr char kPointer[] = "(long)";  // begins the label of a pointer

// The AT command that a call sends; empty: it sends none.
std::string CommandOf(const TraceCall& call) {
    return call.TextOf(Kind::kArgument, "cmd");
}

// The value of a part without secrets. Of a pointer, only whether it is null matters.
std::string Shown(const TraceCall& call, const TraceCall::Part& part) {
    const std::string& label = part.label;
    if (BeginsWith(label, kPointer)) {
        return part.text == "0" ? "null" : "address";
    }
    if (!part.text.empty() &&
        (label == "settingIO->DefaultUser" || label == "settingIO->DefaultPassword")) {
        return "(hidden)";
    }
    return WithoutNumbers(part.text, CommandOf(call));
}

std::string NameOf(const TraceCall::Part& part) {
    return part.label.substr(BeginsWith(part.label, kPointer) ? sizeof kPointer - 1 : 0);
}

// Prints a text of the log without blanks at its end.
void PrintLine(std::size_t indent, const std::string& text) {
    std::cout << std::string(indent, ' ') << Escaped(text.substr(0, text.find_last_not_of(' ') + 1))
              << "\n";
}

// The name, the arguments and the result.
std::string Heading(const TraceCall& call) {
    std::string arguments;
    for (const TraceCall::Part& part : call.parts) {
        if (part.kind == Kind::kArgument) {
            arguments += (arguments.empty() ? "" : ", ") + NameOf(part) + ": " + Shown(call, part);
        }
    }
    return call.name + "(" + arguments + ")" +
           (call.result ? " = " + std::to_string(*call.result) : "") +
           (call.ended ? "" : " did not end");
}

void PrintAnswer(std::size_t indent, const std::string& answer) {
    for (std::string line : Split(answer, '\n')) {
        line.erase(0, line.find_first_not_of('\r'));
        line.erase(line.find_last_not_of('\r') + 1);
        if (!line.empty()) {
            PrintLine(indent, "< " + line);
        }
    }
}

void PrintCall(std::size_t indent, const TraceCall& call, const std::string& note) {
    PrintLine(indent, Heading(call) + note);
    indent += 3;
    if (const std::string command = CommandOf(call); !command.empty()) {
        PrintLine(indent, "> " + command.substr(0, command.find('\r')));
    }
    auto inside = call.calls.begin();
    for (const TraceCall::Part& part : call.parts) {
        switch (part.kind) {
            case Kind::kArgument:
                break;
            case Kind::kOutput:
                PrintLine(indent, NameOf(part) + ": " + Shown(call, part));
                break;
            case Kind::kLine:
                PrintLine(indent, Shown(call, part));
                break;
            case Kind::kAnswer:
                PrintAnswer(indent, Shown(call, part));
                break;
            case Kind::kCall:
                PrintCall(indent, *inside++, "");
                break;
        }
    }
}

Json DescribeCall(const TraceCall& call) {
    Json json = {{"call", call.name},
                 {"ended", call.ended},
                 {"result", call.result ? Json(*call.result) : Json()},
                 {"arguments", Json::object()},
                 {"outputs", Json::object()},
                 {"lines", Json::array()},
                 {"calls", Json::array()}};
    for (const TraceCall::Part& part : call.parts) {
        if (part.kind == Kind::kArgument || part.kind == Kind::kOutput) {
            Json& values = json[part.kind == Kind::kArgument ? "arguments" : "outputs"];
            values[NameOf(part)] = Shown(call, part);
        } else if (part.kind == Kind::kLine) {
            json["lines"].push_back(Shown(call, part));
        } else if (part.kind == Kind::kAnswer) {
            json["answer"] = Shown(call, part);
        }
    }
    for (const TraceCall& inside : call.calls) {
        json["calls"].push_back(DescribeCall(inside));
    }
    for (const std::string& line : call.after) {
        json["after"].push_back(WithoutNumbers(line, ""));
    }
    return json;
}

}  // namespace

void PrintTrace(const TraceLog& log) {
    int detections = 0;
    for (const TraceCall& call : log.calls) {
        PrintCall(0, call,
                  call.IsDetection() ? " (detection " + std::to_string(++detections) + ")" : "");
        for (const std::string& line : call.after) {
            PrintLine(0, WithoutNumbers(line, ""));
        }
    }
}

void PrintTraceJson(const TraceLog& log) {
    Json json = {{"calls", Json::array()}, {"detections", Json::array()}};
    for (const TraceCall& call : log.calls) {
        json["calls"].push_back(DescribeCall(call));
        if (call.IsDetection()) {
            Json dialogue = Json::array();
            for (const Exchange& exchange : DialogueOf(call)) {
                dialogue.push_back({{"command", exchange.command},
                                    {"answer", WithoutNumbers(exchange.answer, exchange.command)}});
            }
            json["detections"].push_back({{"ended", call.IsWhole()}, {"dialogue", dialogue}});
        }
    }
    json["stray_bytes"] = log.strayBytes;
    PrintJson(json);
}

}  // namespace tool
