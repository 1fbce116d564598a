// SPDX-License-Identifier: MIT
#pragma once

#include <gtest/gtest.h>

#include <iterator>
#include <sstream>
#include <string>

#include "commands/options.h"
#include "support/error.h"

const std::string kTestPhones = VELMOR_TESTS_DIR "/tools/phones.source";

// Runs "velmor import" with these words. Returns its report.
inline std::string Import(const std::string& words, const std::string& phones = kTestPhones) {
    std::istringstream all("import --force --phones " + phones + " " + words);
    testing::internal::CaptureStdout();
    tool::RunCommandLine("", {std::istream_iterator<std::string>(all), {}});
    return testing::internal::GetCapturedStdout();
}

// The message of an import that fails.
inline std::string Fault(const std::string& words, const std::string& phones = kTestPhones) {
    try {
        Import(words, phones);
        return "no fault";
    } catch (const tool::ToolError& error) {
        testing::internal::GetCapturedStdout();
        return error.what();
    }
}
