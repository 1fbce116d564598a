// SPDX-License-Identifier: MIT
#pragma once

#include <set>
#include <string>
#include <vector>

#include "velmor.h"

namespace tool {

// The serial device to dial with.
struct DialerLink {
    std::string device;  // empty: the program chooses it
    unsigned baud = 115200;
};

// What a catalogue says of PPP with a setting.
struct PppKind {
    std::set<std::string> types;      // of PDP contexts: IP, IPV6, IPV4V6
    std::string authentication = {};  // as in the column Authentication

    bool HasIpv6() const { return types.count("IPV6") + types.count("IPV4V6") > 0; }
    bool HasIpv4() const { return types.count("IPV6") == 0 || types.size() > 1; }
    // The methods that are refused so that the network takes the right one, as pppd names them.
    std::vector<std::string> RefusedMethods() const;
    // The options of pppd(8) for all of it.
    std::vector<std::string> Options() const;
};

// Options of pppd(8) for a link with a setting, a line each. `connect` is the shell command that
// dials. Each value is data there, whatever it contains. Throws a ToolError that names the field
// when an options file cannot hold a value.
std::string PppdOptions(const Velmor_DUNSetting& setting, const PppKind& kind,
                        const DialerLink& link, const std::string& connect);

// A word of an options file.
std::string PppdWord(const std::string& value);
// A word of a shell command.
std::string ShellWord(const std::string& value);

// Returns the value of a field. Throws a ToolError when it has control characters: a line break
// would end the AT command or the line of the file, and no program needs the others.
std::string OneLine(const char* field, const std::string& value);
// An address, or the empty text when the network assigns one. Throws a ToolError for other texts.
std::string Address(const char* field, const std::string& value);
// The addresses of the setting's name servers, with blanks between them.
std::string NameServers(const Velmor_DUNSetting& setting);

// The value in double quotes, with a backslash before each of some characters.
std::string Escaped(const std::string& value, const char* escaped);

}  // namespace tool
