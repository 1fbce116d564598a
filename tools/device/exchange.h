// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace tool {

// A command with its carriage return, and all bytes that came before the next command.
struct Exchange {
    std::string command;
    std::string answer;
    double sent = 0;      // in seconds since the start of the dialogue
    double answered = 0;  // when the last byte came
};

}  // namespace tool
