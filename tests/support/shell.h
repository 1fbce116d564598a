// SPDX-License-Identifier: MIT
#pragma once

#include <sys/wait.h>

#include <cstdio>
#include <string>
#include <utility>

// Runs a shell line in which "velmor" is the command: its exit status, and what is on standard
// error. What it prints is in the file "out", unless the line sends it elsewhere.
inline std::pair<int, std::string> Shell(const std::string& line) {
    const std::string velmor = "velmor() { " VELMOR_COMMAND " \"$@\"; }; exec 3>&1 >out 2>&3; ";
    std::FILE* pipe = popen((velmor + line).c_str(), "r");
    std::string errors;
    for (int c = 0; (c = std::fgetc(pipe)) != EOF;) {
        errors += static_cast<char>(c);
    }
    const int status = pclose(pipe);
    return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, errors};
}
