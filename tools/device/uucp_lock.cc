// SPDX-License-Identifier: MIT
#include "device/uucp_lock.h"

#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstdio>
#include <fstream>

#include "support/error.h"

namespace tool {
namespace {

// The other process that holds a lock file; 0 when it has ended or the file names none.
pid_t Holder(const std::string& path) {
    long process = 0;
    std::ifstream(path) >> process;
    // EPERM: the process runs, but belongs to another user.
    const bool alive = process > 0 && process != getpid() &&
                       (kill(static_cast<pid_t>(process), 0) == 0 || errno == EPERM);
    return alive ? static_cast<pid_t>(process) : 0;
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

UucpLock::UucpLock(const std::string& device) {
    std::string name = device.compare(0, 5, "/dev/") == 0 ? device.substr(5) : device;
    std::replace(name.begin(), name.end(), '/', '_');
    const std::string path = "/var/lock/LCK.." + name;
    const std::string own = "/var/lock/LTMP." + std::to_string(getpid());
    const bool written = WriteNumber(own);
    pid_t holder = 0;
    // With link the lock appears with its content: a program would take over an empty one. The
    // second attempt follows the removal of an old lock.
    for (int attempt = 0; written && path_.empty() && holder == 0 && attempt < 2; ++attempt) {
        if (link(own.c_str(), path.c_str()) == 0) {
            path_ = path;
        } else if (holder = Holder(path); holder == 0) {
            unlink(path.c_str());
        }
    }
    unlink(own.c_str());
    if (holder != 0) {
        throw ToolError(device, ": in use by process ", holder);
    }
}

UucpLock::~UucpLock() {
    if (!path_.empty()) {
        unlink(path_.c_str());
    }
}

}  // namespace tool
