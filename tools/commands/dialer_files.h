// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include "velmor.h"

namespace tool {

// Files with which other programs dial, made from a setting. Each value stands in them as data, be
// it what it may; what a file format cannot hold is refused with a ToolError that names the field.

// Where and how to dial.
struct DialerLink {
    std::string device;  // empty: left to the program
    unsigned baud = 115200;
};

// An options file for pppd(8), as in /etc/ppp/peers, that dials with the chat script at that path.
std::string PeersFile(const Velmor_DUNSetting& setting, const DialerLink& link,
                      const std::string& chatScript);
// A script for chat(8), from the initialisation string to CONNECT.
std::string ChatScript(const Velmor_DUNSetting& setting);
// The section "Dialer velmor" of a wvdial.conf(5).
std::string WvdialSection(const Velmor_DUNSetting& setting, const DialerLink& link);

}  // namespace tool
