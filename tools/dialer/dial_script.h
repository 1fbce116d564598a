// SPDX-License-Identifier: MIT
#pragma once

#include <set>
#include <string>
#include <vector>

#include "device/dialogue.h"

namespace tool {

// AT commands for velmor dial, a line each. Lines that begin with # are remarks. A command that
// dials (ATD, AT+CGDATA) ends an attempt, and the lines behind it are the next one: phones differ
// in the dial strings that they take.
using DialScript = std::vector<std::string>;

// Reads a script. Throws a ToolError that names the file and the line.
DialScript ParseDialScript(const std::string& text, const std::string& name);
// The text of a script that begins with this remark. Throws a ToolError when a command cannot stand
// in a line of its own.
std::string WriteDialScript(const std::string& remark, const DialScript& script);

// The types of the PDP contexts that the script defines, such as IP; each once.
std::set<std::string> ContextTypes(const DialScript& script);

bool IsDialCommand(const std::string& command);
bool Dials(const DialScript& script);

// What a script came to.
struct DialResult {
    std::string dialled;  // the command that was answered with CONNECT; empty: none
    std::string refused;  // the last command that was not taken, and the answer; empty: none
};

// Runs the attempts until one is answered with CONNECT. A command that is not taken ends its
// attempt; without commands that dial, the script goes on.
DialResult RunDialScript(Dialogue& dialogue, const DialScript& script);

}  // namespace tool
