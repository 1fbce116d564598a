// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace tool {

// A command with its carriage return, and all bytes that came before the next command.
struct Exchange {
    std::string command;
    std::string answer;
    double sent = 0;        // in seconds since the start of the dialogue
    double answered = 0;    // when the last byte came
    std::string read = {};  // what the library got of the answer; empty: the answer as it is

    const std::string& Read() const { return read.empty() ? answer : read; }
};

// The answer's last line with this beginning; empty when there is none.
std::string LineWith(std::string answer, const std::string& beginning);

// Whether the answer ends in OK.
bool IsOk(const std::string& answer);

}  // namespace tool
