// SPDX-License-Identifier: MIT
#include "device/uucp_lock.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <ctime>

#include "device/device_users.h"

namespace tool {
namespace {

// The kernel gives no process a higher number (PID_MAX_LIMIT).
constexpr long kMostProcess = 4194304;
// How long a lock file without a process number counts as a lock, in seconds.
constexpr std::time_t kMostWriting = 60;

// What a lock file says. kUnclear: it names no process, and is older than kMostWriting.
enum class LockState { kNone, kHeld, kEnded, kBeingWritten, kUnclear };

std::string LockPath(const std::string& device) {
    std::string name = device.compare(0, 5, "/dev/") == 0 ? device.substr(5) : device;
    std::replace(name.begin(), name.end(), '/', '_');
    return "/var/lock/LCK.." + name;
}

// The number at the beginning of a lock file; 0 when there is none of a process. Other words may
// follow it.
long ProcessIn(const std::string& path) {
    // O_NONBLOCK: open of a FIFO would wait for a writer.
    const int file = open(path.c_str(), O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC);
    char text[64];
    const ssize_t count = file < 0 ? -1 : read(file, text, sizeof text - 1);
    if (file >= 0) {
        close(file);
    }
    text[std::max<ssize_t>(count, 0)] = '\0';
    char* end = text;
    const long process = std::strtol(text, &end, 10);
    const bool alone = *end == '\n' || *end == ' ' || end == text + count;
    return alone && process > 0 && process <= kMostProcess ? process : 0;
}

// `process` becomes the number in the file, or 0.
LockState Look(const std::string& path, long& process) {
    process = 0;
    struct stat status = {};
    if (lstat(path.c_str(), &status) != 0) {
        return LockState::kNone;
    }
    // Anything else is not opened: it may be a device.
    process = S_ISREG(status.st_mode) ? ProcessIn(path) : 0;
    if (process == 0) {
        const std::time_t age = std::time(nullptr) - status.st_mtime;
        return std::abs(age) < kMostWriting ? LockState::kBeingWritten : LockState::kUnclear;
    }
    // EPERM: the process runs, but belongs to another user.
    const bool alive =
        process != getpid() && (kill(static_cast<pid_t>(process), 0) == 0 || errno == EPERM);
    return alive ? LockState::kHeld : LockState::kEnded;
}

// Writes the process number into a new file, in the usual form: ten columns. False when that fails.
bool WriteNumber(const std::string& path) {
    std::FILE* file = std::fopen(path.c_str(), "wx");
    if (file == nullptr) {
        return false;
    }
    const bool written = std::fprintf(file, "%10ld\n", static_cast<long>(getpid())) > 0;
    return std::fclose(file) == 0 && written;
}

}  // namespace

std::string UucpLock::Reason(const std::string& device) {
    const std::string path = LockPath(device);
    long process = 0;
    switch (Look(path, process)) {
        case LockState::kHeld:
            return InUseBy(static_cast<pid_t>(process));
        case LockState::kBeingWritten:
            return path + " locks it and names no process; remove that file if it is left over";
        case LockState::kNone:
        case LockState::kEnded:
        case LockState::kUnclear:
            break;
    }
    return {};
}

UucpLock::UucpLock(const std::string& device) {
    const std::string path = LockPath(device);
    const std::string own = "/var/lock/LTMP." + std::to_string(getpid());
    const bool written = WriteNumber(own);
    // With link the lock appears with its content: a program would take over an empty one. The
    // second attempt follows the removal of an old lock.
    for (int attempt = 0; written && path_.empty() && attempt < 2; ++attempt) {
        long process = 0;
        if (link(own.c_str(), path.c_str()) == 0) {
            path_ = path;
        } else if (Look(path, process) == LockState::kEnded) {
            unlink(path.c_str());
        }
    }
    unlink(own.c_str());
    const std::string reason = path_.empty() ? Reason(device) : "";
    if (!reason.empty()) {
        throw DeviceInUse(device, ": ", reason);
    }
}

UucpLock::~UucpLock() {
    if (!path_.empty()) {
        unlink(path_.c_str());
    }
}

}  // namespace tool
