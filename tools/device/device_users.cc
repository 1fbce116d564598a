// SPDX-License-Identifier: MIT
#include "device/device_users.h"

#include <sys/stat.h>
#include <sys/sysmacros.h>
#include <unistd.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <vector>

#include "support/texts.h"

namespace tool {
namespace {

namespace fs = std::filesystem;

// The major numbers of pseudo-terminals, each with 256 of them.
constexpr unsigned kFirstMajor = 136;
constexpr unsigned kLastMajor = 143;

// The names in a folder of /proc. None when the folder is closed to this user, or its process ends.
std::vector<std::string> NamesIn(const std::string& folder) {
    std::vector<std::string> names;
    std::error_code error;
    fs::directory_iterator entry(folder, error);
    for (; !error && entry != fs::directory_iterator(); entry.increment(error)) {
        names.push_back(entry->path().filename());
    }
    return names;
}

// Whether a descriptor is the master of the pseudo-terminal with this device number.
bool IsMasterOf(dev_t device, const std::string& process, const std::string& descriptor) {
    std::ifstream info("/proc/" + process + "/fdinfo/" + descriptor);
    for (std::string line; std::getline(info, line);) {
        if (line == Concat("tty-index:\t", PseudoTerminal(device))) {
            return true;
        }
    }
    return false;
}

bool Uses(const std::string& process, dev_t device) {
    bool open = false;
    const std::string folder = "/proc/" + process + "/fd/";
    for (const std::string& descriptor : NamesIn(folder)) {
        std::error_code error;
        const std::string target = fs::read_symlink(folder + descriptor, error);
        // Other targets are left alone: stat waits for a file server that is not there.
        if (!BeginsWith(target, "/dev/")) {
            continue;
        }
        struct stat status = {};
        open = open || (stat((folder + descriptor).c_str(), &status) == 0 &&
                        S_ISCHR(status.st_mode) && status.st_rdev == device);
        if (target.find("ptmx") != std::string::npos && IsMasterOf(device, process, descriptor)) {
            return false;
        }
    }
    return open;
}

// The process that holds a lock on the file of the device. /proc/locks has a line for each lock:
// 1: FLOCK  ADVISORY  WRITE 305 00:1a:5 0 EOF
pid_t LockHolder(const struct stat& device) {
    char inode[64];
    std::snprintf(inode, sizeof inode, "%02x:%02x:%lu", major(device.st_dev), minor(device.st_dev),
                  static_cast<unsigned long>(device.st_ino));
    std::ifstream locks("/proc/locks");
    for (std::string line; std::getline(locks, line);) {
        std::istringstream words(line);
        std::string number, kind, advisory, access, file;
        long process = 0;
        words >> number >> kind >> advisory >> access >> process >> file;
        if (file == inode && process > 0 && process != getpid()) {
            return static_cast<pid_t>(process);
        }
    }
    return 0;
}

}  // namespace

int PseudoTerminal(dev_t device) {
    const unsigned kind = major(device);
    const bool pseudo = kFirstMajor <= kind && kind <= kLastMajor;
    return pseudo ? static_cast<int>((kind - kFirstMajor) * 256 + minor(device)) : -1;
}

pid_t FindDeviceUser(const std::string& device) {
    struct stat status = {};
    if (stat(device.c_str(), &status) != 0) {
        return 0;
    }
    for (const std::string& process : NamesIn("/proc")) {
        if (IsDigits(process) && process != std::to_string(getpid()) &&
            Uses(process, status.st_rdev)) {
            return static_cast<pid_t>(std::atol(process.c_str()));
        }
    }
    return LockHolder(status);
}

std::string InUseBy(pid_t process) {
    if (process == 0) {
        return "in use by another program";
    }
    std::ifstream file(Concat("/proc/", process, "/comm"));
    std::string name;
    std::getline(file, name);
    std::replace_if(name.begin(), name.end(), IsControl, '?');
    return Concat("in use by process ", process, name.empty() ? "" : " (" + name + ")",
                  name == "ModemManager"
                      ? "; keep it off this port with a udev rule as in velmor(1), or stop it: "
                        "systemctl stop ModemManager"
                      : "");
}

}  // namespace tool
