// SPDX-License-Identifier: MIT
#pragma once

#include <gtest/gtest.h>
#include <sys/wait.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <iostream>
#include <string>
#include <utility>
#include <vector>

#include "support/error.h"
#include "tests/support/files.h"
#include "tests/support/patterns.h"

// Starts a shell line in a folder of its own, or here. In the line, "velmor" is the command, and
// "await" waits until a file has content or a process has ended. The output goes to the file "out".
// The line and its processes end after 100 seconds at most; a test has more time.
inline std::FILE* Start(const std::string& line, const std::string& folder = ".") {
    const std::string begin =
        "velmor() { " VELMOR_COMMAND
        " \"$@\"; }; exec 3>&1 >out 2>&3\n"
        "await() { until [ -s $1 ]; do kill -0 $2 || exit 98; sleep 0.05; done; }\n";
    std::filesystem::create_directories(folder);
    setenv("LINE", (begin + line).c_str(), 1);
    return popen(("cd " + folder + "; exec timeout -k 5 100 sh -c \"$LINE\" </dev/null").c_str(),
                 "r");
}

// Waits for its end. Returns its exit status and what it wrote on standard error.
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

// A shell line and what it must give.
struct ShellRow {
    std::string line;
    int status;
    std::string words;       // the whole output when it ends a line, else a part of the errors
    std::string input = {};  // the bytes of the file "input"
};

// Runs the line. Status 2 goes with one line on standard error.
inline void ExpectRow(const ShellRow& row) {
    SCOPED_TRACE(row.line);
    if (!row.input.empty()) {
        WriteFile("input", row.input);
    }
    const auto [status, errors] = Shell(row.line);
    EXPECT_EQ(status, row.status) << errors;
    if (row.status == 2) {
        EXPECT_EQ(std::count(errors.begin(), errors.end(), '\n'), 1) << errors;
    }
    if (!row.words.empty() && row.words.back() == '\n') {
        EXPECT_EQ(errors + ReadFile("out"), row.words);
    } else {
        EXPECT_NE(errors.find(row.words), std::string::npos) << errors;
    }
}

// Shell lines that run while a phone plays the file "profile". $device is its device, and the file
// "log" has the dialogue. A second phone has a number behind these names.
inline std::string WithPhone(const std::string& lines, const std::string& n = "") {
    const std::string phone = "phone" + n, device = "device" + n;
    return "rm -f " + device + "; " VELMOR_COMMAND " phone profile" + n + " -v >" + device +
           " 2>log" + n + " & " + phone + "=$!\nawait " + device + " $" + phone + "; " + device +
           "=$(cat " + device + ")\n(" + lines + "\n); status=$?; kill -INT $" + phone +
           "; wait $" + phone +
           "; ended=$?\n"
           "[ $ended = 0 ] || [ $ended = 130 ] || exit 99; exit $status";  // 130: at its end
}

// A profile, shell lines that run with it, their exit status, and words of what they print.
struct PhoneRow {
    std::string profile;
    std::string lines;
    int status;
    std::string words;
    std::string second = {};  // another profile
};

// Runs the rows at the same time, each in a folder with its number.
inline void ExpectPhoneRows(const std::vector<PhoneRow>& rows) {
    std::vector<std::FILE*> running;
    for (const PhoneRow& row : rows) {
        const std::string folder = std::to_string(running.size());
        std::filesystem::create_directory(folder);
        WriteFile(folder + "/profile", row.profile);
        WriteFile(folder + "/profile2", row.second);
        const std::string lines = row.second.empty() ? row.lines : WithPhone(row.lines, "2");
        running.push_back(Start(WithPhone(lines), folder));
    }
    for (std::size_t i = 0; i < running.size(); ++i) {
        SCOPED_TRACE(rows[i].profile + "\n" + rows[i].lines);
        const auto [status, errors] = Finish(running[i]);
        EXPECT_EQ(status, rows[i].status);
        const std::string said = ReadFile(std::to_string(i) + "/out") + errors;
        EXPECT_NE(said.find(rows[i].words), std::string::npos) << said;
    }
}

// The error of the command that a call throws; empty without one.
template <class Call>
std::string ErrorOf(const Call& call) {
    try {
        call();
        return "";
    } catch (const tool::ToolError& error) {
        return error.what();
    }
}

inline bool Installed(const std::string& program) {
    const bool installed = Shell("command -v " + program).first == 0;
    std::cout << (installed ? "" : "left out: " + program + " is not installed\n");
    return installed;
}
