// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include "velmor.h"

namespace tool {

// Files with which other programs dial, made from a DUN setting. Each value is data there, whatever
// it contains. A value that a file format cannot hold throws a ToolError that names the field.

// The serial device to dial with.
struct DialerLink {
    std::string device;  // empty: the program chooses it
    unsigned baud = 115200;
};

// An options file for pppd(8), as in /etc/ppp/peers. It dials with the chat script at that path.
std::string PeersFile(const Velmor_DUNSetting& setting, const DialerLink& link,
                      const std::string& chatScript);
// A script for chat(8), from the initialisation string to CONNECT.
std::string ChatScript(const Velmor_DUNSetting& setting);
// The section "Dialer velmor" of a wvdial.conf(5).
std::string WvdialSection(const Velmor_DUNSetting& setting, const DialerLink& link);

// The connection "velmor" as a keyfile of NetworkManager, see nm-settings-keyfile(5). ModemManager,
// which dials for it, makes the initialisation and dial strings itself.
std::string NetworkManagerKeyfile(const Velmor_DUNSetting& setting, const DialerLink& link);

}  // namespace tool
