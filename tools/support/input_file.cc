// SPDX-License-Identifier: MIT
#include "support/input_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>

#include "support/error.h"
#include "support/interruption.h"

namespace tool {
namespace {

constexpr int kLong = 60000;                   // milliseconds
constexpr std::size_t kMostBytes = 256000000;  // a device may give bytes without end

// An open file. Opening does not wait, reading does, where a signal can end it: nobody may write to
// a pipe.
struct Descriptor {
    explicit Descriptor(const std::string& path)
        : number(open(path.c_str(), O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC)) {}
    ~Descriptor() {
        if (number >= 0) {
            close(number);
        }
    }
    int number;
};

std::string Read(const Descriptor& file, const std::string& path, std::size_t most) {
    std::string bytes;
    char block[65536];
    ssize_t count = file.number < 0 ? -1 : 1;
    while (count > 0 && bytes.size() < most) {
        struct pollfd waiting = {file.number, POLLIN, 0};
        while (Interruption::Wait(&waiting, 1, kLong) <= 0) {
            if (Interruption::Signal() != 0) {
                throw ToolError(path, ": interrupted");
            }
        }
        count = read(file.number, block, sizeof block);
        if (count < 0 && (errno == EAGAIN || errno == EINTR)) {
            count = 1;  // another reader took the bytes
            continue;
        }
        bytes.append(block, std::min(static_cast<std::size_t>(std::max<ssize_t>(count, 0)),
                                     most - bytes.size()));
        if (bytes.size() > kMostBytes) {
            throw ToolError(path, ": is larger than ", kMostBytes / 1000000,
                            " MB; no file of Velmor is so large");
        }
    }
    if (count < 0) {
        const char* const advice = errno == EISDIR ? "; name a file in it" : "";
        throw ToolError(path, ": cannot be read: ", std::strerror(errno), advice);
    }
    return bytes;
}

}  // namespace

std::string ReadInput(const std::string& path, std::size_t most) {
    return Read(Descriptor(path), path, most);
}

std::string ReadRegular(const std::string& path, std::size_t most, struct stat& state) {
    const Descriptor file(path);
    if (file.number >= 0 && fstat(file.number, &state) == 0 && !S_ISREG(state.st_mode)) {
        throw ToolError(path, ": is not a regular file");
    }
    return Read(file, path, most);
}

std::string WithoutCarriageReturns(std::string line) {
    line.erase(std::remove(line.begin(), line.end(), '\r'), line.end());
    return line;
}

}  // namespace tool
