// SPDX-License-Identifier: MIT
#include "device/device_list.h"

#include <glob.h>
#include <sys/stat.h>
#include <sys/sysmacros.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <map>
#include <tuple>

#include "device/device_users.h"
#include "support/texts.h"

namespace tool {
namespace {

namespace fs = std::filesystem;

// USB modems, cables and adapters, and Bluetooth.
constexpr char kUsualNames[] = "{serial/by-id/*,ttyACM*,ttyUSB*,rfcomm*}";

constexpr unsigned kConsoles = 4;  // the device number of virtual consoles, and of ttyS from 64 on
constexpr unsigned kFirstSerial = 64;
constexpr unsigned kOwnTerminal = 5;  // /dev/tty, /dev/console and /dev/ptmx

std::vector<std::string> Matching(const std::string& pattern) {
    glob_t found = {};
    std::vector<std::string> paths;
    if (glob(pattern.c_str(), GLOB_BRACE, nullptr, &found) == 0) {
        paths.assign(found.gl_pathv, found.gl_pathv + found.gl_pathc);
    }
    globfree(&found);
    return paths;
}

// The path without symbolic links; empty when it leads nowhere.
std::string WithoutLinks(const std::string& path) {
    std::error_code error;
    return fs::canonical(path, error).string();
}

// The line in a file of sysfs; empty when there is none. Some of these texts come from the device,
// so a terminal must get no control characters.
std::string Line(const fs::path& file) {
    std::ifstream stream(file);
    std::string line;
    std::getline(stream, line);
    std::replace_if(line.begin(), line.end(), IsControl, ' ');
    const std::size_t end = line.find_last_not_of(' ');
    return end == std::string::npos ? "" : line.substr(0, end + 1);
}

// Whether it is safe to open a device that a search has found. Opening starts a watchdog, for
// example, and a console would show the AT commands.
bool IsSerial(dev_t number, const std::string& folder) {
    const unsigned kind = major(number);
    if (kind == kOwnTerminal || (kind == kConsoles && minor(number) < kFirstSerial)) {
        return false;
    }
    std::error_code error;
    return PseudoTerminal(number) >= 0 ||
           fs::read_symlink(folder + "/subsystem", error).filename() == "tty";
}

std::string ProductIn(const fs::path& folder) {
    const std::string maker = Line(folder / "manufacturer");
    const std::string product = Line(folder / "product");
    if (maker.empty() && product.empty()) {
        return Line(folder / "idVendor") + ":" + Line(folder / "idProduct");
    }
    const bool both = !maker.empty() && !BeginsWith(product, maker);
    return both ? maker + (product.empty() ? "" : " ") + product : product;
}

// Adds what sysfs says in the folder of a port and in those above it, up to the USB device.
void Describe(Port& port, const std::string& folder) {
    if (port.rfcomm) {  // the USB device is the adapter, which may have several phones
        port.product = Line(fs::path(folder) / "address");
        return;
    }
    bool onInterface = false;
    for (fs::path level = folder; level.has_relative_path(); level = level.parent_path()) {
        const std::string number = Line(level / "port_number");
        if (!number.empty()) {
            port.number = std::strtoul(number.c_str(), nullptr, 10);
        }
        const std::string interface = Line(level / "bInterfaceNumber");
        if (!interface.empty() && !onInterface) {
            port.interface = std::strtoul(interface.c_str(), nullptr, 16);
            onInterface = true;
        }
        if (!Line(level / "idVendor").empty()) {
            port.product = ProductIn(level);
            port.unit = level.string();
            return;
        }
    }
}

// By length first, so that ttyUSB10 comes after ttyUSB2.
auto Order(const Port& port) {
    return std::make_tuple(port.interface, port.number, port.device.size(), port.device);
}

}  // namespace

std::vector<PortGroup> ListPorts(const std::string& search, const SystemFolders& folders) {
    std::map<std::string, std::string> stableNames;  // by the path without symbolic links
    for (const std::string& path : Matching(folders.devices + "/serial/by-id/*")) {
        stableNames.insert({WithoutLinks(path), path});
    }
    const bool usual = search.empty();
    const std::string pattern = usual ? kUsualNames : search;
    std::map<std::string, Port> ports;  // by the path without symbolic links
    for (const std::string& path :
         Matching(pattern.find('/') == std::string::npos || usual ? folders.devices + "/" + pattern
                                                                  : pattern)) {
        Port port;
        port.device = port.unit = WithoutLinks(path);
        struct stat status = {};
        if (stat(port.device.c_str(), &status) != 0 || !S_ISCHR(status.st_mode)) {
            continue;
        }
        const std::string folder = WithoutLinks(Concat(
            folders.system, "/dev/char/", major(status.st_rdev), ":", minor(status.st_rdev)));
        if (!usual && !IsSerial(status.st_rdev, folder)) {
            continue;
        }
        const auto stable = stableNames.find(port.device);
        port.path = stable == stableNames.end() ? path : stable->second;
        port.rfcomm = BeginsWith(fs::path(path).filename(), "rfcomm") ||
                      BeginsWith(fs::path(port.device).filename(), "rfcomm");
        Describe(port, folder);
        ports.insert({port.device, port});
    }
    std::map<std::string, PortGroup> units;
    for (const auto& [device, port] : ports) {
        units[port.unit].push_back(port);
    }
    std::vector<PortGroup> groups;
    groups.reserve(units.size());
    for (auto& [unit, group] : units) {
        std::sort(group.begin(), group.end(),
                  [](const Port& a, const Port& b) { return Order(a) < Order(b); });
        groups.push_back(std::move(group));
    }
    std::sort(groups.begin(), groups.end(), [](const PortGroup& a, const PortGroup& b) {
        return std::make_tuple(a[0].device.size(), a[0].device) <
               std::make_tuple(b[0].device.size(), b[0].device);
    });
    return groups;
}

}  // namespace tool
