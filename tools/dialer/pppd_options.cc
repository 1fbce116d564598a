// SPDX-License-Identifier: MIT
#include "dialer/pppd_options.h"

#include <arpa/inet.h>

#include <algorithm>

#include "host/session.h"
#include "support/error.h"
#include "support/texts.h"

namespace tool {

std::string OneLine(const char* field, const std::string& value) {
    if (std::any_of(value.begin(), value.end(), IsControl)) {
        throw ToolError(field,
                        ": has a line break or another control character; AT commands and "
                        "configuration files cannot hold it");
    }
    return value;
}

std::string Escaped(const std::string& value, const char* escaped) {
    std::string text = "\"";
    for (const char c : value) {
        text += std::string(escaped).find(c) == std::string::npos ? "" : "\\";
        text += c;
    }
    return text + "\"";
}

// pppd takes the character after a backslash as it is.
std::string PppdWord(const std::string& value) {
    return Escaped(value, "\\\"");
}

std::string ShellWord(const std::string& value) {
    std::string text = "'";
    for (const char c : value) {
        text += c == '\'' ? "'\\''" : std::string(1, c);
    }
    return text + "'";
}

std::string Address(const char* field, const std::string& value) {
    struct in_addr address = {};
    if (value.empty() || value == "0.0.0.0") {
        return "";
    }
    if (inet_pton(AF_INET, value.c_str(), &address) != 1) {
        throw ToolError(field, ": is not an IPv4 address");
    }
    return value;
}

std::string NameServers(const Velmor_DUNSetting& setting) {
    std::string servers;
    for (const std::string& server : {Address("name server", HostText(setting.Dns1)),
                                      Address("name server 2", HostText(setting.Dns2))}) {
        servers += (servers.empty() || server.empty() ? "" : " ") + server;
    }
    return servers;
}

std::vector<std::string> PppKind::RefusedMethods() const {
    if (authentication == "pap") {
        return {"chap", "mschap", "mschap-v2", "eap"};
    }
    return authentication == "chap" ? std::vector<std::string>{"pap"} : std::vector<std::string>();
}

std::vector<std::string> PppKind::Options() const {
    std::vector<std::string> options;
    for (const std::string& method : RefusedMethods()) {
        options.push_back("refuse-" + method);
    }
    if (HasIpv6()) {
        options.emplace_back("+ipv6");
    }
    if (!HasIpv4()) {
        options.emplace_back("noip");
    }
    return options;
}

std::string PppdOptions(const Velmor_DUNSetting& setting, const PppKind& kind,
                        const DialerLink& link, const std::string& connect) {
    std::string text = PppdWord(OneLine("device", link.device)) + "\n" + std::to_string(link.baud) +
                       "\nconnect " + PppdWord(connect) +
                       "\nlock\nnoauth\ndefaultroute\nusepeerdns\nhide-password\n";
    const std::string client = Address("client address", HostText(setting.ClientIP));
    const std::string gateway = Address("gateway", HostText(setting.GatewayIP));
    text += client.empty() ? "noipdefault\n" : "";
    text += client.empty() && gateway.empty() ? "" : client + ":" + gateway + "\n";
    // Else pppd quits if the peer proposes another gateway, as many do.
    text += gateway.empty() ? "" : "ipcp-accept-remote\n";
    for (const std::string& option : kind.Options()) {
        text += option + "\n";
    }
    // A link that is dead without a word is noticed within 40 seconds.
    text += "lcp-echo-interval 10\nlcp-echo-failure 4\n";
    // For the script in /etc/ppp/ip-up.d, when the network names no servers.
    const std::string servers = NameServers(setting);
    text += "ipparam " + PppdWord(servers.empty() ? "velmor" : "velmor " + servers) + "\n";
    const std::string user = OneLine("user", HostText(setting.DefaultUser));
    const std::string password = OneLine("password", HostText(setting.DefaultPassword));
    // Many phones ask for credentials that no network looks at: pppd needs a word for each then.
    text += "user " + PppdWord(user.empty() ? " " : user) + "\n";
    text += "password " + PppdWord(password.empty() ? " " : password) + "\n";
    return text;
}

}  // namespace tool
