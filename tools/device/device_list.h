// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

namespace tool {

// The folders where the system shows its devices. Tests give others.
struct SystemFolders {
    std::string devices = "/dev";
    std::string system = "/sys";
};

// A serial device of the system.
struct Port {
    std::string path;    // its stable name in /dev/serial/by-id if it has one, else as found
    std::string device;  // the path without symbolic links
    std::string product;
    std::string unit;  // the device; ports of the same device have the same unit
    unsigned long interface = 0;
    unsigned long number = 0;  // within the interface
    bool rfcomm = false;       // opening it starts a radio connection
};

// The ports of one device, the lowest interface first. There is at least one.
using PortGroup = std::vector<Port>;

// The serial devices that may be a phone. A search is a pattern of the shell and replaces the usual
// names; a pattern without a slash is a name in /dev. Opens no device.
std::vector<PortGroup> ListPorts(const std::string& search, const SystemFolders& folders = {});

}  // namespace tool
