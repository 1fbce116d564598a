// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

#include "device/device_list.h"

namespace tool {

// What asking a port has shown, the most useful first.
enum class PortState {
    kAnswers,
    kInCall,    // it sends PPP frames: nobody ended its last call
    kBusy,      // in use; it was not opened where that could be seen from outside
    kUnusable,  // it cannot be opened
    kOther,     // it sends lines, but no answer to AT
    kSilent,
    kNotAsked,
};

// A device with its ports, and the port to take: the lowest port that answers, or the lowest port
// with the most useful state when none answers.
struct FoundDevice {
    Port port;
    PortState state = PortState::kNotAsked;
    std::string detail;  // of kBusy and kUnusable: the reason
    PortGroup ports;
};

// How devices are searched for.
struct PortSearch {
    std::string pattern;  // empty: the usual names
    unsigned baud = 115200;
    SystemFolders folders;
};

// Lists devices and sends AT to each, for at most a second a port. Sends nothing to a device in
// use, and to a Bluetooth port only when the pattern says rfcomm. Throws a ToolError when a signal
// ends the search.
std::vector<FoundDevice> SearchPorts(const PortSearch& search);

// The path of the device that answers, or is in a call; empty when none does. Throws a ToolError
// with the list when several answer.
std::string TheOneThatAnswers(const std::vector<FoundDevice>& devices);

}  // namespace tool
