// SPDX-License-Identifier: MIT
#include "diagnosis/pin_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <filesystem>

#include "support/error.h"
#include "support/input_file.h"
#include "support/output_file.h"
#include "support/texts.h"

namespace tool {
namespace {

// The digits of a PIN (3GPP TS 31.101).
constexpr std::size_t kFewestDigits = 4;
constexpr std::size_t kMostDigits = 8;

// No file of a PIN or a mark is longer.
constexpr std::size_t kMostBytes = 64;

}  // namespace

PinFile::PinFile(const std::string& path) : path_(path) {
    struct stat state = {};
    pin_ = ReadRegular(path, kMostBytes, state);
    if ((state.st_mode & (S_IRWXG | S_IRWXO)) != 0) {
        throw ToolError(path, ": others may use this file; chmod 600 makes it private");
    }
    for (const char end : {'\n', '\r'}) {
        if (!pin_.empty() && pin_.back() == end) {
            pin_.pop_back();
        }
    }
    if (pin_.size() < kFewestDigits || pin_.size() > kMostDigits || !IsDigits(pin_)) {
        throw ToolError(path, ": is not a line with a PIN of ", kFewestDigits, " to ", kMostDigits,
                        " digits");
    }
    version_ = Concat(state.st_size, " ", state.st_mtim.tv_sec, ".", state.st_mtim.tv_nsec, "\n");
    mark_ = std::filesystem::canonical(path).string() + ".refused";
    struct stat mark = {};
    marked_ = lstat(mark_.c_str(), &mark) == 0 && ReadRegular(mark_, kMostBytes, mark) == version_;
}

void PinFile::Mark() const {
    OutputFile(mark_, true).Write(version_);
    // Without this a power failure could take the name back.
    const int folder =
        open(std::filesystem::path(mark_).parent_path().c_str(), O_RDONLY | O_CLOEXEC);
    if (folder >= 0) {
        fsync(folder);
        close(folder);
    }
}

void PinFile::RemoveMark() const {
    if (unlink(mark_.c_str()) != 0) {
        throw ToolError(mark_, ": cannot be removed: ", std::strerror(errno),
                        "; remove it, or the PIN is not sent again");
    }
}

}  // namespace tool
