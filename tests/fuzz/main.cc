// SPDX-License-Identifier: MIT
// Runs a fuzzer over the inputs in a directory, for compilers without libFuzzer.
#include <filesystem>

#include "tests/fuzz/fuzz.h"
#include "tests/support/files.h"

int main(int, char** argv) {
    int count = 0;
    for (const auto& input : std::filesystem::directory_iterator(argv[1])) {
        std::fprintf(stderr, "%s\n", input.path().c_str());  // the last name is the failed input
        const std::string bytes = ReadFile(input.path());
        LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size());
        ++count;
    }
    return count == 0 ? EXIT_FAILURE : EXIT_SUCCESS;
}
