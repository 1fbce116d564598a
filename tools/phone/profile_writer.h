// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

namespace tool {

// A command with its carriage return, and the bytes that came before the next command.
struct Turn {
    std::string command;
    std::string answer;
};

// The text of a profile that gives these answers again byte for byte, but without numbers as below.
// Without any turn the phone answers nothing. A phone that is gone disconnects after the last
// answer. `source` says where the answers come from. Throws a std::runtime_error for a command that
// no profile can hold.
std::string WriteProfile(const std::vector<Turn>& recorded, const std::string& source,
                         bool gone = false);

// The answer to a command, or a part of it, with zeros in place of the digits that identify a
// subscriber or a device; docs/profiles.md lists them. The length stays.
std::string WithoutNumbers(std::string answer, const std::string& command);

// The bytes as a text of one line, with the escapes of a profile.
std::string Escaped(const std::string& bytes);

}  // namespace tool
