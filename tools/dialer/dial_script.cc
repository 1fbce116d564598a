// SPDX-License-Identifier: MIT
#include "dialer/dial_script.h"

#include <algorithm>
#include <sstream>

#include "support/error.h"
#include "support/input_file.h"
#include "support/texts.h"

namespace tool {
namespace {

// The limits of an answer in seconds: to a command, and to a dial command, for which the phone asks
// the network.
constexpr double kAnswer = 10;
constexpr double kDialling = 60;

std::string LastLine(std::string answer) {
    answer.erase(answer.find_last_not_of("\r\n ") + 1);
    const std::size_t start = answer.find_last_of("\r\n");
    return start == std::string::npos ? answer : answer.substr(start + 1);
}

}  // namespace

DialScript ParseDialScript(const std::string& text, const std::string& name) {
    DialScript script;
    std::istringstream lines(text);
    int number = 0;
    for (std::string line; std::getline(lines, line);) {
        ++number;
        line = WithoutCarriageReturns(line);
        if (std::any_of(line.begin(), line.end(), IsControl)) {
            throw ToolError(name, ": line ", number, ": has a control character");
        }
        if (!line.empty() && line[0] != '#') {
            script.push_back(line);
        }
    }
    return script;
}

std::string WriteDialScript(const std::string& remark, const DialScript& script) {
    std::string text = remark;
    for (const std::string& command : script) {
        if (command.empty() || command[0] == '#' ||
            std::any_of(command.begin(), command.end(), IsControl)) {
            throw ToolError(
                "initialisation or dial string: begins with #, or has a line break or another "
                "control character, which no AT command has");
        }
        text += command + "\n";
    }
    return text;
}

std::set<std::string> ContextTypes(const DialScript& script) {
    std::set<std::string> types;
    for (const std::string& command : script) {
        const std::vector<std::string> quoted = Split(command, '"');
        if (BeginsWith(command, "AT+CGDCONT=") && quoted.size() > 1) {
            types.insert(quoted[1]);
        }
    }
    return types;
}

bool IsDialCommand(const std::string& command) {
    const std::string small = InSmallLetters(command);
    return BeginsWith(small, "atd") || BeginsWith(small, "at+cgdata");
}

bool Dials(const DialScript& script) {
    return std::any_of(script.begin(), script.end(), IsDialCommand);
}

DialResult RunDialScript(Dialogue& dialogue, const DialScript& script) {
    const bool dials = Dials(script);
    DialResult result;
    bool failed = false;  // the attempt; the next one begins behind its dial command
    for (const std::string& command : script) {
        const bool dial = IsDialCommand(command);
        if (!failed && dialogue.IsOpen()) {
            const std::string answer = dialogue.Ask(command, dial ? kDialling : kAnswer);
            if (dial && !LineWith(answer, "CONNECT").empty()) {
                result.dialled = command;
                return result;
            }
            failed = dials && (dial || !IsOk(answer));
            if (!IsOk(answer)) {
                result.refused = command + ": " + (answer.empty() ? "no answer" : LastLine(answer));
            }
        }
        failed = failed && !dial;
    }
    return result;
}

}  // namespace tool
