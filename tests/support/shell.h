// SPDX-License-Identifier: MIT
#pragma once

#include <sys/wait.h>

#include <cstdio>
#include <filesystem>
#include <string>
#include <utility>

// Starts a shell line in a folder of its own, or here. In it "velmor" is the command; what it
// prints goes to the file "out", unless the line sends it elsewhere.
inline std::FILE* Start(const std::string& line, const std::string& folder = ".") {
    const std::string velmor = "velmor() { " VELMOR_COMMAND " \"$@\"; }; exec 3>&1 >out 2>&3; ";
    std::filesystem::create_directories(folder);
    return popen(("cd " + folder + "; " + velmor + line).c_str(), "r");
}

// Its exit status at its end, and what it wrote on standard error.
inline std::pair<int, std::string> Finish(std::FILE* running) {
    std::string errors;
    for (int c = 0; (c = std::fgetc(running)) != EOF;) {
        errors += static_cast<char>(c);
    }
    const int status = pclose(running);
    return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, errors};
}

inline std::pair<int, std::string> Shell(const std::string& line) {
    return Finish(Start(line));
}
