// SPDX-License-Identifier: MIT
// Runs the tests of a program in a scratch directory, and removes it afterwards.
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>

#include "session/trace.h"

const char* const vel::kTraceLogPath = "trace.log";

int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    std::string scratch = (std::filesystem::temp_directory_path() / "velmor-test-XXXXXX").string();
    if (mkdtemp(scratch.data()) == nullptr) {
        return EXIT_FAILURE;
    }
    std::filesystem::current_path(scratch);
    const int result = RUN_ALL_TESTS();
    std::filesystem::current_path("/");
    std::error_code ignored;
    std::filesystem::remove_all(scratch, ignored);
    return result;
}
