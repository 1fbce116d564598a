// SPDX-License-Identifier: MIT
#include "support/input_file.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <memory>
#include <sstream>

#include "support/error.h"

namespace tool {

// With stdio, because a stream does not say why it failed.
std::string ReadInput(const std::string& path) {
    const std::unique_ptr<std::FILE, int (*)(std::FILE*)> file(std::fopen(path.c_str(), "rb"),
                                                               std::fclose);
    std::string bytes;
    char block[65536];
    std::size_t count = 0;
    while (file != nullptr && (count = std::fread(block, 1, sizeof block, file.get())) > 0) {
        bytes.append(block, count);
    }
    if (file == nullptr || std::ferror(file.get()) != 0) {
        throw ToolError(path, ": cannot be read: ", std::strerror(errno));
    }
    return bytes;
}

std::vector<std::string> SplitLines(const std::string& bytes) {
    std::vector<std::string> lines;
    std::istringstream stream(bytes + "\n");
    for (std::string line; std::getline(stream, line);) {
        lines.push_back(line);
    }
    return lines;
}

std::string WithoutCarriageReturns(std::string line) {
    line.erase(std::remove(line.begin(), line.end(), '\r'), line.end());
    return line;
}

}  // namespace tool
